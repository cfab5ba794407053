// The main demonstration: what the library does to a recording, in steps. Each step prints what it measured, holds the
// figures to an expectation, writes what there is to hear, and makes a section of the page that shows it all.
#include "demo.hpp"

#include <arkpx.h>

#include <cstdio>
#include <exception>

namespace demo {

// One file each: step_recordings.cpp and so on.
void recordings(Demo& demo);
void level(Demo& demo);
void mix(Demo& demo);
void rounding(Demo& demo);
void stereo(Demo& demo);
void digits(Demo& demo);
void noise(Demo& demo);
void windowed(Demo& demo);
void companding(Demo& demo);
void spectra(Demo& demo);
void rates(Demo& demo);
void hum(Demo& demo);
void echo(Demo& demo);
void reverb(Demo& demo);
void fixed(Demo& demo);
void heart(Demo& demo);
void denoised(Demo& demo);
void cosines(Demo& demo);
void mistakes(Demo& demo);

namespace {

constexpr struct {
    const char* title;
    const char* name;
    void (*run)(Demo&);
} steps[] = {
    {"The recordings, to floating point and back", "recordings", recordings},
    {"The level, changed in 16-bit arithmetic", "level", level},
    {"Two sounds mixed", "mix", mix},
    {"From floating point to 16 bits: four rounding rules", "rounding", rounding},
    {"Stereo as complex numbers: an image turned by 30 degrees", "stereo", stereo},
    {"A number dialled in tones", "digits", digits},
    {"Noise of a given level", "noise", noise},
    {"Windows for spectra", "windowed", windowed},
    {"A telephone line: 8 bits a sample", "companding", companding},
    {"The recording's spectrum", "spectra", spectra},
    {"48 kHz to 8 kHz and back", "rates", rates},
    {"Hum and drift taken out", "hum", hum},
    {"An echo cancelled", "echo", echo},
    {"A room, by convolution", "reverb", reverb},
    {"One filter in 16 bits under each scale mode", "fixed", fixed},
    {"A heartbeat", "heart", heart},
    {"The heartbeat under noise", "denoised", denoised},
    {"Speech as few cosines", "cosines", cosines},
    {"Three mistakes, and what is reported", "mistakes", mistakes},
};

} // namespace
} // namespace demo

int main(int argc, char** argv)
{
    if (argc < 3 || argc > 4) {
        std::fprintf(stderr, "usage: arkpx_demo RESULTS_FOLDER RECORDINGS_FOLDER [AUDIO_FILE]\n");
        return 2;
    }
    // Every thread starts in a mode in which a report offers to end the process. This program looks at the status.
    arkSetErrMode(ARK_ErrModeSilent);
    try {
        demo::Demo demo(argv[1], argv[2], argc > 3 ? argv[3] : "");
        int number = 0;
        for (const auto& step : demo::steps) {
            std::printf("\n[%d/%zu] %s\n", ++number, std::size(demo::steps), step.title);
            std::fflush(stdout);
            demo.begin(step.title, step.name);
            step.run(demo);
            demo.expect("status at the end of the step", arkErrorStr(arkGetErrStatus()), "No Error");
        }
        return demo.finish() ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
