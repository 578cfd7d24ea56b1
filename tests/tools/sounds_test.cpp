// The wave files: plain PCM that the player accepts, of the expected length,
// never clipped, and ending in silence.
#include <gtest/gtest.h>

#include <QFile>
#include <QtEndian>

#include <cstdint>

#include "tests/tools/game_folder.h"

namespace fendle {
namespace {

using testing::gameFile;

std::uint16_t le16(const QByteArray& b, int at) { return qFromLittleEndian<quint16>(b.constData() + at); }
// v as the bytes of a little-endian file.
template <typename T>
QByteArray le(T v) { v = qToLittleEndian(v); return QByteArray(reinterpret_cast<const char*>(&v), sizeof v); }

struct SoundCase {
    const char* name;
    double shortest, longest;   // seconds, silent tail included
};

TEST(Sounds, EveryWaveIsPlainPcmOfItsLengthAndEndsInSilence) {
    const SoundCase cases[] = {
        {"click", 0.3, 1.0},   {"click1", 0.3, 1.0},  {"tink", 0.4, 1.0},    {"cupdice", 1.3, 1.7},
        {"space", 0.4, 1.0},   {"key", 0.4, 1.0},     {"boom", 0.4, 1.0},    {"subping", 0.4, 1.0},
        {"laser3", 0.4, 1.0},  {"cash", 0.4, 1.0},    {"cheer2", 1.7, 2.3},  {"boink", 0.4, 1.0},
        {"gong", 1.7, 2.3},    {"crowd", 2.6, 3.4},
    };
    for (const SoundCase& c : cases) {
        SCOPED_TRACE(c.name);
        QFile f(gameFile(QStringLiteral("wav\\%1.wav").arg(QLatin1String(c.name))));
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        const QByteArray b = f.readAll();
        // RIFF header, a 16-byte fmt chunk of plain PCM (1), mono, 22050 frames
        // a second of 2 bytes (44100 bytes) with 16 bits, then the data chunk.
        const QByteArray header = "RIFF" + le<quint32>(b.size() - 8) + "WAVEfmt " + le<quint32>(16) + le<quint16>(1) +
                                  le<quint16>(1) + le<quint32>(22050) + le<quint32>(44100) + le<quint16>(2) +
                                  le<quint16>(16) + "data" + le<quint32>(b.size() - 44);
        ASSERT_EQ(b.left(44).toHex(' ').toStdString(), header.toHex(' ').toStdString());

        const int count = (b.size() - 44) / 2;
        const double seconds = count / 22050.0;
        EXPECT_GE(seconds, c.shortest);
        EXPECT_LE(seconds, c.longest);
        int peak = 0, lastSound = -1;
        for (int i = 0; i < count; ++i) {
            const int v = static_cast<std::int16_t>(le16(b, 44 + 2 * i));
            peak = std::max(peak, std::abs(v));
            if (v != 0) lastSound = i;
        }
        EXPECT_LT(peak, 32000) << "clipped";
        EXPECT_GT(peak, 6000) << "too quiet to hear";
        // The player may cut the end of a sound: the last 0.28 s are silent.
        EXPECT_LE(lastSound, count - static_cast<int>(0.28 * 22050));
        // ... and there is a sound in front of the silence.
        EXPECT_GT(lastSound, static_cast<int>(0.02 * 22050));
    }
}

}  // namespace
}  // namespace fendle
