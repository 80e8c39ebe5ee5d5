// Renders the sound of a refused popup: two short soft notes, the second one lower. Used by the build:
// render_sound <output.wav>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <numbers>
#include <string>
#include <vector>

namespace {

constexpr int kRate = 22050;
constexpr int kLength = kRate * 26 / 100;
/// A quarter of what the format holds.
constexpr double kLoudness = 8000;

struct Note
{
    int begin;
    double hertz;
};
constexpr Note kNotes[] = {{0, 880.0}, {kRate * 7 / 100, 587.33}};

/// A struck note: it comes within milliseconds and fades away.
double struck(const Note &note, int sample)
{
    if (sample < note.begin)
        return 0;
    const double t = double(sample - note.begin) / kRate;
    const double phase = 2 * std::numbers::pi * note.hertz * t;
    const double rise = std::min(1.0, t / 0.004);
    return rise * std::exp(-t * 26) * (std::sin(phase) + 0.2 * std::sin(2 * phase));
}

std::vector<int16_t> samples()
{
    std::vector<int16_t> wave;
    for (int i = 0; i < kLength; ++i) {
        double value = 0;
        for (const Note &note : kNotes)
            value += struck(note, i);
        // Silence at the end, so that nothing clicks.
        const double fade = std::min(1.0, double(kLength - 1 - i) / (kRate / 50.0));
        wave.push_back(static_cast<int16_t>(std::lround(value * fade * kLoudness)));
    }
    return wave;
}

/// A sound file with one channel of 16 bits.
std::string waveFile(const std::vector<int16_t> &wave)
{
    std::string bytes;
    const auto put = [&bytes](uint32_t value, int size) {
        for (; size > 0; --size, value >>= 8)
            bytes += static_cast<char>(value & 0xFF);
    };
    const auto dataSize = static_cast<uint32_t>(wave.size() * 2);
    bytes += "RIFF";
    put(36 + dataSize, 4);
    bytes += "WAVEfmt ";
    put(16, 4);
    put(1, 2); // plain samples
    put(1, 2); // channels
    put(kRate, 4);
    put(kRate * 2, 4);
    put(2, 2);
    put(16, 2);
    bytes += "data";
    put(dataSize, 4);
    for (const int16_t sample : wave)
        put(static_cast<uint16_t>(sample), 2);
    return bytes;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: render_sound <output.wav>\n");
        return 2;
    }
    const std::string bytes = waveFile(samples());
    std::ofstream file(argv[1], std::ios::binary);
    if (!file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush()) {
        std::fprintf(stderr, "render_sound: cannot write %s\n", argv[1]);
        return 1;
    }
    return 0;
}
