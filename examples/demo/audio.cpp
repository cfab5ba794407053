#include "audio.hpp"

#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <memory>
#include <numbers>
#include <random>

namespace demo {
namespace {

using File = std::unique_ptr<SNDFILE, decltype(&sf_close)>;

constexpr int longest = 60; // seconds: what a demonstration can be expected to wait for

} // namespace

std::optional<Recording> readAudio(const std::filesystem::path& file, const std::string& credit, std::string& problem)
{
    SF_INFO info{};
    const File audio(sf_open(file.c_str(), SFM_READ, &info), sf_close);
    if (!audio) {
        problem = sf_strerror(nullptr);
        return {};
    }
    // Files of floating-point samples: full scale is 1.
    sf_command(audio.get(), SFC_SET_SCALE_FLOAT_INT_READ, nullptr, SF_TRUE);
    const auto frames = std::size_t(std::min<sf_count_t>(info.frames, sf_count_t{longest} * info.samplerate));
    std::vector<short> interleaved(frames * std::size_t(info.channels));
    const auto read = sf_readf_short(audio.get(), interleaved.data(), sf_count_t(frames));

    Recording recording{file.filename().string(), credit, info.samplerate, {}, false};
    recording.samples.reserve(frames);
    for (std::size_t i = 0; i < std::size_t(read); i++)
        recording.samples.push_back(interleaved[i * std::size_t(info.channels)]);
    return recording;
}

Recording madeVoice(const std::string& name, int rate, double seconds, int peak, unsigned seed)
{
    std::mt19937 random(seed);
    const auto uniform = [&] { return double(random()) / 4294967296.0; };

    const auto count = std::size_t(seconds * rate);
    std::vector<double> sound(count);
    double loudness = 0, target = 0, pitch = 0, phase = 0;
    for (std::size_t i = 0; i < count; i++) {
        if (i % std::size_t(rate / 5) == 0) { // five syllables a second, some of them pauses
            target = uniform() < 0.25 ? 0.0005 : 0.1 + uniform();
            pitch = 90 + 80 * uniform();
        }
        loudness += (target - loudness) * 100 / rate;
        phase = std::fmod(phase + pitch / rate, 1.0);
        double voiced = 0;
        for (int harmonic = 1; harmonic <= 20; harmonic++)
            voiced += std::sin(2 * std::numbers::pi * harmonic * phase) / harmonic;
        sound[i] = loudness * (voiced + 0.2 * (uniform() - 0.5));
    }

    const auto [least, most] = std::minmax_element(sound.begin(), sound.end());
    const double scale = peak / std::max(-*least, *most);
    Recording made{name, "made by this program", rate, {}, true};
    made.samples.reserve(count);
    for (const double x : sound)
        made.samples.push_back(short(std::lround(scale * x)));
    return made;
}

std::optional<Recording> readNumpy(const std::filesystem::path& file, const std::string& credit, int rate, int offset)
{
    // "\x93NUMPY", a version of two bytes, the length of a header in two more, the header, which names the type.
    std::ifstream in(file, std::ios::binary);
    const std::string all{std::istreambuf_iterator<char>(in), {}};
    const auto byte = [&](std::size_t i) { return int((unsigned char)all[i]); };
    if (all.size() < 10 || all.compare(0, 7,
                                       "\x93"
                                       "NUMPY\x01",
                                       7) != 0)
        return {};
    const std::size_t begin = std::size_t(10 + byte(8) + 256 * byte(9));
    if (begin > all.size() || all.substr(0, begin).find("'<u2'") == std::string::npos)
        return {};
    Recording recording{file.filename().string(), credit, rate, {}, false};
    for (std::size_t i = begin; i + 1 < all.size(); i += 2)
        recording.samples.push_back(short(byte(i) + 256 * byte(i + 1) - offset));
    return recording;
}

Recording madeHeart(const std::string& name, int rate, double seconds)
{
    std::mt19937 random(5);
    const auto uniform = [&] { return double(random()) / 4294967296.0; };
    std::vector<double> voltage(std::size_t(seconds * rate));
    for (std::size_t i = 0; i < voltage.size(); i++)
        voltage[i] = 0.3 * std::sin(2 * std::numbers::pi * 0.1 * double(i) / rate) + 0.02 * (uniform() - 0.5);
    // The waves of a beat: height in mV, place and width in seconds.
    constexpr struct {
        double height, place, width;
    } waves[] = {{0.15, -0.18, 0.025}, {-0.1, -0.03, 0.008}, {1.2, 0, 0.010}, {-0.25, 0.03, 0.010}, {0.3, 0.25, 0.05}};
    double beat = 0.5;
    while (beat < seconds) {
        for (const auto& wave : waves) {
            const double middle = (beat + wave.place) * rate, reach = 4 * wave.width * rate;
            const auto from = std::size_t(std::max(0.0, middle - reach));
            const auto to = std::min(voltage.size(), std::size_t(middle + reach));
            for (std::size_t i = from; i < to; i++) {
                const double t = (double(i) - middle) / (wave.width * rate);
                voltage[i] += wave.height * std::exp(-0.5 * t * t);
            }
        }
        beat += 0.8 + 0.04 * (uniform() - 0.5);
    }
    Recording made{name, "made by this program", rate, {}, true};
    for (const double v : voltage)
        made.samples.push_back(short(std::lround(200 * v)));
    return made;
}

bool writeWav(const std::filesystem::path& file, std::span<const short> samples, int channels, int rate,
              const std::string& credit)
{
    SF_INFO info{};
    info.samplerate = rate;
    info.channels = channels;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    File audio(sf_open(file.c_str(), SFM_WRITE, &info), sf_close);
    if (!audio)
        return false;
    sf_set_string(audio.get(), SF_STR_COPYRIGHT, credit.c_str());
    sf_set_string(audio.get(), SF_STR_COMMENT, "Modified by the demonstration of arkpx");
    const auto count = sf_count_t(samples.size());
    return sf_write_short(audio.get(), samples.data(), count) == count && sf_close(audio.release()) == 0;
}

double decibels(double ratio) { return 20 * std::log10(ratio); }
double ratioOf(double decibels) { return std::pow(10, decibels / 20); }

std::vector<unsigned char> telephoneCodes(std::span<const short> samples, bool muLaw)
{
    // A file that is a vector; only its end is written to.
    using Bytes = std::vector<unsigned char>;
    const auto size = [](void* bytes) { return sf_count_t(static_cast<Bytes*>(bytes)->size()); };
    SF_VIRTUAL_IO memory{};
    memory.get_filelen = size;
    memory.tell = size;
    memory.seek = [](sf_count_t, int, void* bytes) { return sf_count_t(static_cast<Bytes*>(bytes)->size()); };
    memory.read = [](void*, sf_count_t, void*) { return sf_count_t{0}; };
    memory.write = [](const void* from, sf_count_t n, void* bytes) {
        const auto* const first = static_cast<const unsigned char*>(from);
        static_cast<Bytes*>(bytes)->insert(static_cast<Bytes*>(bytes)->end(), first, first + n);
        return n;
    };
    Bytes codes;
    SF_INFO info{};
    info.samplerate = 8000;
    info.channels = 1;
    info.format = SF_FORMAT_RAW | (muLaw ? SF_FORMAT_ULAW : SF_FORMAT_ALAW);
    const File audio(sf_open_virtual(&memory, SFM_WRITE, &info, &codes), sf_close);
    if (audio)
        sf_write_short(audio.get(), samples.data(), sf_count_t(samples.size()));
    return codes;
}

double peakLevel(std::span<const short> samples)
{
    int peak = 0;
    for (const short x : samples)
        peak = std::max(peak, std::abs(int(x)));
    return decibels(peak / 32768.0);
}

double rmsLevel(std::span<const short> samples)
{
    double sum = 0;
    for (const short x : samples)
        sum += double(x) * x;
    return decibels(std::sqrt(sum / double(samples.size())) / 32768);
}

} // namespace demo
