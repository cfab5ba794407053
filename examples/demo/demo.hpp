// What the steps of the demonstration share: the recordings, a table, and expectations that figures are held to.
#pragma once

#include "audio.hpp"

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

private:
    std::vector<std::vector<std::string>> rows;
};

class Demo {
public:
    Demo(std::filesystem::path results, const std::filesystem::path& data, const std::filesystem::path& own);

    Recording speech;      // what most steps work on: the user's own recording where there is one
    Recording background;  // a second sound at the same rate
    Recording left, right; // at 48 kHz, equally long

    // Prints a paragraph.
    static void say(const std::string& words);

    // Prints a figure and holds it to low ... high, or to a value or text that it must equal.
    void expect(const std::string& what, double measured, double low, double high, const std::string& unit);
    void expect(const std::string& what, long long measured, long long wanted);
    void expect(const std::string& what, const std::string& found, const std::string& wanted);

    // Writes a WAV file among the results.
    void write(const std::string& name, std::span<const short> samples, int channels, const Recording& source);

    // Prints how many expectations were met: true if all were.
    bool finish() const;

private:
    void judge(bool met, const std::string& line);

    std::filesystem::path results;
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
