// Recordings: read from audio files, made when there are none, measured, written.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace demo {

// One channel of 16-bit samples.
struct Recording {
    std::string name;
    std::string credit; // who made it, and under which licence it may be passed on
    int rate = 0;       // samples per second
    std::vector<short> samples;
    bool madeUp = false; // no recording, but a sound that this program made
};

// The first channel of the file's first minute, or nothing when it cannot be read: then problem says why.
std::optional<Recording> readAudio(const std::filesystem::path& file, const std::string& credit, std::string& problem);

// What stands in for a recording: a voice-like sound with a given largest magnitude, another for each seed.
Recording madeVoice(const std::string& name, int rate, double seconds, int peak, unsigned seed);

// A file of 16-bit unsigned integers as NumPy stores an array, shifted by offset.
std::optional<Recording> readNumpy(const std::filesystem::path& file, const std::string& credit, int rate, int offset);

// What stands in for an electrocardiogram: beats on a slow drift, 200 units a millivolt.
Recording madeHeart(const std::string& name, int rate, double seconds);

// Writes interleaved channels as a 16-bit WAV file, which carries the credit. False when it cannot be written.
bool writeWav(const std::filesystem::path& file, std::span<const short> samples, int channels, int rate,
              const std::string& credit);

// The samples as codes of G.711, encoded by libsndfile.
std::vector<unsigned char> telephoneCodes(std::span<const short> samples, bool muLaw);

// Levels in dBFS: 0 is a magnitude of 32768. The RMS level of the loudest sine is -3.
double peakLevel(std::span<const short> samples);
double rmsLevel(std::span<const short> samples);

double decibels(double ratio);
double ratioOf(double decibels);

} // namespace demo
