#include "demo.hpp"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace demo {
namespace {

constexpr const char* speechPackage = "asterisk-core-sounds-en-wav";
constexpr const char* stereoPackage = "alsa-utils";
constexpr const char* heartPackage = "python3-scipy";

// The package's file of that name, wherever the package keeps it; else a made sound.
Recording fetched(const std::filesystem::path& data, const std::string& package, const std::string& name,
                  const std::string& credit, int rate, double seconds, int peak, unsigned seed)
{
    std::error_code error; // a folder that is not there ends the loop at once
    const std::filesystem::path folder = data / package;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder, error)) {
        if (entry.path().filename() != name)
            continue;
        std::string problem;
        const auto recording = readAudio(entry.path(), credit, problem);
        if (recording && recording->rate == rate)
            return *recording;
    }
    return madeVoice("stand-in for " + name, rate, seconds, peak, seed);
}

// The same sound a quarter of a second later.
Recording echoOf(const Recording& recording)
{
    Recording echo = recording;
    echo.name = "echo of " + recording.name;
    std::rotate(echo.samples.rbegin(), echo.samples.rbegin() + std::min(echo.rate / 4, lengthOf(echo.samples)),
                echo.samples.rend());
    return echo;
}

} // namespace

std::string text(double value, int decimals)
{
    char out[64];
    std::snprintf(out, sizeof out, "%.*f", decimals, value);
    return out;
}

std::string text(long long value) { return std::to_string(value); }

void Table::print() const
{
    std::vector<std::size_t> widths(rows.front().size());
    std::vector<bool> words(rows.front().size());
    for (const auto& row : rows)
        for (std::size_t i = 0; i < row.size(); i++) {
            widths[i] = std::max(widths[i], row[i].size());
            if (&row != &rows.front() && !row[i].empty())
                words[i] = words[i] || std::isalpha((unsigned char)row[i].front());
        }
    std::puts("");
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); i++) {
            const bool padded = i + 1 < row.size() || !words[i];
            std::printf(words[i] ? "  %-*s" : "  %*s", padded ? int(widths[i]) : 0, row[i].c_str());
        }
        std::puts("");
        if (&row == &rows.front()) {
            for (const std::size_t width : widths)
                std::printf("  %s", std::string(width, '-').c_str());
            std::puts("");
        }
    }
    std::puts("");
}

Demo::Demo(std::filesystem::path folder, const std::filesystem::path& data, const std::filesystem::path& own)
    : results(std::move(folder)),
      page(results)
{
    std::filesystem::create_directories(results);

    const std::string voice = "Allison Smith, CC BY-SA 3.0, from the Debian package asterisk-core-sounds-en-wav";
    speech = fetched(data, speechPackage, "demo-congrats.wav", voice, 8000, 20, 28000, 1);
    background = fetched(data, speechPackage, "tt-monkeys.wav", voice, 8000, 12, 18000, 2);
    const std::string stereo = "ALSA project, GPL-2, from the Debian package alsa-utils";
    left = fetched(data, stereoPackage, "Front_Left.wav", stereo, 48000, 1.5, 16000, 3);
    right = fetched(data, stereoPackage, "Front_Right.wav", stereo, 48000, 1.5, 16000, 4);
    const std::size_t both = std::min(left.samples.size(), right.samples.size());
    left.samples.resize(both);
    right.samples.resize(both);

    constexpr int heartRate = 360, heartZero = 1024; // of the database's recordings
    auto recorded =
        readNumpy(data / heartPackage / "ecg.npy",
                  "MIT-BIH Arrhythmia Database, record 208 (Moody, Mark, IEEE Eng. in Med. and Biol. 20(3), 2001), "
                  "ODC-By 1.0, from the Debian package python3-scipy",
                  heartRate, heartZero);
    heart = recorded ? *recorded : madeHeart("stand-in for an electrocardiogram", heartRate, 120);

    if (!own.empty()) {
        std::string problem;
        auto recording = readAudio(own, "your own recording", problem);
        if (!recording)
            throw std::runtime_error(own.string() + ": " + problem);
        // Rounding is measured as a mean, and levels in decibels: that takes a sound, and some of it.
        if (lengthOf(recording->samples) < recording->rate / 2 || peakLevel(recording->samples) < -42)
            throw std::runtime_error(own.string() + ": needs half a second at least, with a peak above -42 dBFS");
        speech = *recording;
    }
    if (background.rate != speech.rate)
        background = echoOf(speech);
    // As long as the speech: repeated or cut.
    const std::size_t period = background.samples.size();
    background.samples.resize(speech.samples.size());
    for (std::size_t i = period; i < background.samples.size(); i++)
        background.samples[i] = background.samples[i - period];
}

void Demo::say(const std::string& words)
{
    std::printf("  %s\n", words.c_str());
    page.paragraph(words);
}

void Demo::show(const Table& table)
{
    table.print();
    page.table(table.cells());
}

void Demo::judge(bool met, const std::string& what, const std::string& measured, const std::string& wanted)
{
    figures++;
    missed += met ? 0 : 1;
    std::printf("  %-6s %s: %s (expected %s)\n", met ? "ok" : "MISSED", what.c_str(), measured.c_str(), wanted.c_str());
    std::fflush(stdout);
    page.figure(met, what, measured, wanted);
}

void Demo::expect(const std::string& what, double measured, double low, double high, const std::string& unit)
{
    char found[64], wanted[64];
    std::snprintf(found, sizeof found, "%.4g %s", measured, unit.c_str());
    if (std::isfinite(low))
        std::snprintf(wanted, sizeof wanted, "%.4g ... %.4g", low, high);
    else
        std::snprintf(wanted, sizeof wanted, "at most %.4g", high);
    judge(measured >= low && measured <= high, what, found, wanted);
}

void Demo::expect(const std::string& what, long long measured, long long wanted)
{
    judge(measured == wanted, what, text(measured), text(wanted));
}

void Demo::expect(const std::string& what, const std::string& found, const std::string& wanted)
{
    judge(found == wanted, what, found, wanted);
}

void Demo::write(const std::string& name, std::span<const short> samples, int channels, const Recording& source)
{
    const std::filesystem::path file = results / (name + ".wav");
    if (!writeWav(file, samples, channels, source.rate, source.credit))
        throw std::runtime_error("cannot write " + file.string());
    page.sound(name + ".wav");
}

bool Demo::finish() const
{
    const std::string summary = text((long long)figures) + " figures, " + text((long long)(figures - missed)) +
                                " as expected, " + text((long long)missed) + " missed.";
    std::vector<std::string> credits;
    for (const Recording* r : {&speech, &background, &left, &right, &heart})
        credits.push_back(r->name + ": " + r->credit);
    page.write(summary, credits);
    std::printf("\n%s See and hear the results: %s\n", summary.c_str(), (results / "index.html").c_str());
    return missed == 0;
}

} // namespace demo
