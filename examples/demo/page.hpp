// The page that the demonstration writes: a section per step with its code, tables, pictures, figures and sounds.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace demo {

// A line, or what else gnuplot makes of points: "impulses", "points", "boxes" ...
struct Curve {
    std::string name;
    std::vector<double> x, y;
    std::string style = "lines";
};

// Curves over common axes. settings: further commands for gnuplot, a line each.
struct Picture {
    std::string title, xLabel, yLabel;
    std::vector<Curve> curves;
    std::string settings{};
};

// A grid of values as colours: rows[i][j] at x = j xStep, y = i yStep.
struct Map {
    std::string title, xLabel, yLabel;
    double xStep, yStep;
    std::vector<std::vector<double>> rows;
    double least, largest; // the range of the colours
};

class Page {
public:
    explicit Page(std::filesystem::path where) : folder(std::move(where)) {}

    // A new section for the step of that name: step_NAME.cpp begins with a comment, the section's introduction, and has
    // lines between the markers "[code" and "code]", which the section shows.
    void section(const std::string& title, const std::string& name);

    void paragraph(const std::string& words);
    void table(const std::vector<std::vector<std::string>>& rows);
    void figure(bool met, const std::string& what, const std::string& measured, const std::string& wanted);
    void sound(const std::string& file);
    void picture(const Picture& picture);
    void picture(const Map& map);

    // Makes index.html and its pictures in the folder, which becomes the current one.
    void write(const std::string& summary, const std::vector<std::string>& credits) const;

private:
    struct Section {
        std::string title, introduction, code, body, figures, sounds;
    };

    std::string newPicture(const std::string& title); // the beginning of its commands

    std::filesystem::path folder;
    std::vector<Section> sections;
    std::string plots;    // commands for gnuplot
    int pictureCount = 0; // they are picture-1.png ...
};

} // namespace demo
