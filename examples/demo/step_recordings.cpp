// What the other steps work on; 16-bit integers to floats and back is exact.
#include "demo.hpp"

#include <arkpx.h>

namespace demo {

void recordings(Demo& demo)
{
    Table table({"recording", "rate/Hz", "seconds", "peak/dBFS", "RMS/dBFS", "by"});
    for (const Recording* r : {&demo.speech, &demo.background, &demo.left, &demo.right})
        table.row({r->name, text((long long)r->rate), text(double(r->samples.size()) / r->rate, 1),
                   text(peakLevel(r->samples), 2), text(rmsLevel(r->samples), 2), r->credit});
    demo.show(table);
    if (demo.background.madeUp || demo.left.madeUp)
        demo.say("Recordings are missing: sounds that this program makes stand in for them.\n");

    const std::vector<short>& samples = demo.speech.samples;
    const int n = lengthOf(samples);

    // [code
    std::vector<float> floats(samples.size());
    arksbIntToFloat(samples.data(), floats.data(), n, 16, 0);
    // code]
    long long changed = 0;
    for (std::size_t i = 0; i < samples.size(); i++)
        changed += floats[i] != float(samples[i]);
    demo.expect("samples changed on the way to floats", changed, 0);

    // [code
    std::vector<short> back(samples.size());
    arksbFloatToInt(floats.data(), back.data(), n, 16, ARK_RoundNearest | ARK_Saturate);
    // code]
    changed = 0;
    for (std::size_t i = 0; i < samples.size(); i++)
        changed += back[i] != samples[i];
    demo.expect("samples changed there and back", changed, 0);

    demo.write("speech", samples, 1, demo.speech);
}

} // namespace demo
