// Spectra in decibels, for the pictures and figures of the steps.
#pragma once

#include "page.hpp"

#include <span>
#include <string>
#include <vector>

namespace demo {

// Levels of the elements 0 ... N/2 of the spectrum of N = 2^order samples (zeros behind shorter ones), 0 dB the
// largest.
std::vector<double> levels(std::span<const float> samples, int order);

// Frequencies of these elements.
std::vector<double> frequencies(int order, double rate);

// Spectra of 256 samples under Hann windows, 300 of them at the most, spread over the recording; 0 dB is full scale.
Map spectrogram(const std::string& title, std::span<const short> samples, int rate);

} // namespace demo
