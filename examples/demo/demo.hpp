// What the steps of the demonstration share: the recordings, a table, and expectations that figures are held to.
#pragma once

#include "audio.hpp"
#include "page.hpp"

#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace demo {

std::string text(double value, int decimals);
std::string text(long long value);

// Columns as wide as their widest cell: words begin at the left, numbers end at the right.
class Table {
public:
    explicit Table(std::vector<std::string> heads) : rows{std::move(heads)} {}
    void row(std::vector<std::string> cells) { rows.push_back(std::move(cells)); }
    void print() const;
    const std::vector<std::vector<std::string>>& cells() const { return rows; }

private:
    std::vector<std::vector<std::string>> rows;
};

class Demo {
public:
    Demo(std::filesystem::path results, const std::filesystem::path& data, const std::filesystem::path& own);

    Recording speech;      // what most steps work on: the user's own recording where there is one
    Recording background;  // a second sound at the same rate
    Recording left, right; // at 48 kHz, equally long
    Recording heart;       // an electrocardiogram, 200 units a millivolt

    // Begins a step: step_NAME.cpp.
    void begin(const std::string& title, const std::string& name) { page.section(title, name); }

    // All of the following is printed and goes on the page. A paragraph, a table, a picture (on the page only):
    void say(const std::string& words);
    void show(const Table& table);
    template <class AnyPicture>
    void draw(const AnyPicture& picture)
    {
        page.picture(picture);
    }

    // A figure, which is held to low ... high, or to a value or text that it must equal.
    void expect(const std::string& what, double measured, double low, double high, const std::string& unit);
    void expect(const std::string& what, long long measured, long long wanted);
    void expect(const std::string& what, const std::string& found, const std::string& wanted);

    // Writes a WAV file among the results.
    void write(const std::string& name, std::span<const short> samples, int channels, const Recording& source);

    // Writes the page and prints how many expectations were met: true if all were.
    bool finish() const;

private:
    void judge(bool met, const std::string& what, const std::string& measured, const std::string& wanted);

    std::filesystem::path results;
    Page page;
    int figures = 0;
    int missed = 0;
};

// Lengths in the interface are ints. The recordings are far shorter.
template <class Vector>
int lengthOf(const Vector& vector)
{
    return int(vector.size());
}

} // namespace demo
