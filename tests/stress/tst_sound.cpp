// Sound that really leaves the program. A private PulseAudio server with a
// null sink stands in for the speakers, and parec records its monitor while
// the real Qt sound port plays: the recording holds the wave it was asked
// for, and a damaged wave is silent and holds nothing up. Which waves the
// screens ask for, and none with sound off, is held by the recorder of the
// screen tests (tst_games).
//
// Where no PulseAudio can start the test says why and is skipped; with CI
// set, that is a failure.
#include "../screens/game_run.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>

#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>

using namespace fendle;
using testing::GameRun;

namespace {

// The waves', the null sink's and the recording's rate: nothing is resampled
// on the way, and a wave comes back as it was played.
constexpr int rate = 22050;
QString pulseProblem;   // why no server could be started, if none could

std::vector<float> readRaw(const QByteArray& bytes) {
    std::vector<float> out(std::size_t(bytes.size() / 2));
    for (std::size_t i = 0; i < out.size(); ++i) out[i] = float(qFromLittleEndian<qint16>(bytes.constData() + 2 * i)) / 32768.0f;
    return out;
}

// A wave file of the game folder (PCM, 16 bit, mono) without the silence at
// its end and without its first 20 ms, which the monitor may lose as a
// stream starts.
std::vector<float> waveBody(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return {};
    const QByteArray bytes = f.readAll();
    const qsizetype dataAt = bytes.indexOf("data") + 8;
    std::vector<float> body = readRaw(bytes.mid(dataAt, qFromLittleEndian<quint32>(bytes.constData() + dataAt - 4)));
    while (!body.empty() && std::abs(body.back()) < 1e-4f) body.pop_back();
    body.erase(body.begin(), body.begin() + std::min<long>(rate / 50, long(body.size())));
    return body;
}

double loudest(const std::vector<float>& rec) {
    double top = 0;
    for (float x : rec) top = std::max(top, double(std::abs(x)));
    return top;
}

// The best normalised correlation of `part` with the recording anywhere: 1
// where the recording holds the same samples.
double bestMatch(const std::vector<float>& rec, const std::vector<float>& part) {
    double best = 0, energy = 0;
    for (float x : part) energy += double(x) * x;
    for (std::size_t at = 0; at + part.size() <= rec.size(); ++at) {
        double dot = 0, er = 0;
        for (std::size_t k = 0; k < part.size(); ++k) dot += rec[at + k] * part[k], er += double(rec[at + k]) * rec[at + k];
        if (er > 0 && energy > 0) best = std::max(best, dot / std::sqrt(er * energy));
    }
    return best;
}

// The share of the sounding pieces of 100 ms in the first second of a wave
// that the recording holds: a block that the sink drops under load costs
// only the piece it hits.
double heardShare(const std::vector<float>& rec, const std::vector<float>& wave) {
    const std::size_t piece = rate / 10;
    int pieces = 0, found = 0;
    for (std::size_t k = 0; k + piece <= std::min<std::size_t>(wave.size(), rate); k += piece) {
        const std::vector<float> part(wave.begin() + long(k), wave.begin() + long(k + piece));
        if (loudest(part) < 1e-3) continue;   // a pause within the wave
        ++pieces;
        found += bestMatch(rec, part) > 0.8;
    }
    return pieces ? double(found) / pieces : 0;
}

// parec on the null sink's monitor.
class Recording {
public:
    Recording() {
        parec_.start("parec", {"-d", "ci_sink.monitor", "--rate=22050", "--channels=1", "--format=s16le", "--raw", "--latency-msec=20"});
        clock.start();
        // Wait until samples flow, and take the time of the first one.
        while (parec_.state() != QProcess::NotRunning && parec_.bytesAvailable() < rate / 5 && clock.elapsed() < 10000)
            QTest::qWait(5);
        startMs = clock.elapsed() - parec_.bytesAvailable() * 1000 / (2 * rate);
    }
    std::vector<float> stop() {
        QTest::qWait(300);
        ::kill(pid_t(parec_.processId()), SIGINT);
        parec_.waitForFinished(5000);
        return readRaw(parec_.readAllStandardOutput());
    }
    long sampleAt(qint64 ms) const { return long((ms - startMs) * rate / 1000); }
    bool running() const { return parec_.state() == QProcess::Running; }

    QElapsedTimer clock;
    qint64 startMs = 0;

private:
    QProcess parec_;
};

}  // namespace

class TestSound : public QObject {
    Q_OBJECT

    // Waits in real time while a sound plays out; the virtual clock stands.
    static void listen(int ms) { QTest::qWait(ms); }

private slots:
    // Before each test: with no server, a skip that says why, or in CI a failure.
    void init() {
        if (pulseProblem.isEmpty()) return;
        if (qEnvironmentVariableIsSet("CI")) QFAIL(qPrintable("no PulseAudio in CI: " + pulseProblem));
        QSKIP(qPrintable("no sound server to record from: " + pulseProblem));
    }

    void aMissingOrDamagedWaveIsSilentAndNothingWaits() {
        GameRun g;
        const QByteArray wave = g.read("wav/cash.wav");
        g.write("wav/cut.wav", wave.left(wave.size() / 2));   // ends half-way
        g.write("wav/noise.wav", QByteArray(4000, 'x'));       // not a wave at all
        QByteArray floating = wave;
        floating[20] = 3;                                     // IEEE float, which the player cannot play
        g.write("wav/float.wav", floating);

        Recording rec;
        QVERIFY(rec.running());
        auto sound = std::make_unique<QtSound>();
        QVERIFY(sound->play("wav\\cash.wav"));
        listen(1500);
        const qint64 damagedFrom = rec.clock.elapsed();
        for (const char* name : {"wav\\missing.wav", "wav\\cut.wav", "wav\\noise.wav", "wav\\float.wav"}) {
            QElapsedTimer t;
            t.start();
            QVERIFY2(!sound->play(name), name);
            QVERIFY2(t.elapsed() < 500, name);
            listen(300);
        }
        // The program's end, right after a damaged wave.
        QElapsedTimer t;
        t.start();
        sound->play("wav\\cut.wav");
        sound.reset();
        QVERIFY2(t.elapsed() < 1000, "a damaged wave held up the end");
        listen(300);
        const std::vector<float> samples = rec.stop();
        // Nor does a player that goes while its sound still loads.
        t.restart();
        std::make_unique<QtSound>()->play("wav\\cash.wav");
        QVERIFY2(t.elapsed() < 1000, "a wave that was loading held up the end");

        const long quietFrom = std::clamp(rec.sampleAt(damagedFrom), 0L, long(samples.size()));
        QVERIFY2(heardShare({samples.begin(), samples.begin() + quietFrom}, waveBody(g.file("wav/cash.wav"))) >= 0.7,
                 "the good wave was not heard");
        QVERIFY(long(samples.size()) - quietFrom > rate);
        QVERIFY2(loudest({samples.begin() + quietFrom, samples.end()}) < 1e-3, "a damaged or missing wave made a sound");
    }
};

int main(int argc, char** argv) {
    // A server of this test's own, in a private runtime folder, before any
    // part of Qt looks for one.
    QTemporaryDir runtime;
    ::chmod(runtime.path().toLocal8Bit(), 0700);
    qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    qputenv("HOME", runtime.path().toLocal8Bit());
    qunsetenv("PULSE_SERVER");
    const int started = std::system(
        "pulseaudio --daemonize=yes --exit-idle-time=-1 -n --load=module-native-protocol-unix "
        "--load='module-null-sink sink_name=ci_sink rate=22050' 2>/dev/null");
    if (started != 0) pulseProblem = "pulseaudio (Debian package pulseaudio) did not start";
    else if (std::system("parec --version >/dev/null 2>&1") != 0)
        pulseProblem = "parec (Debian package pulseaudio-utils) is missing";

    int result = 0;
    {
        QApplication app(argc, argv);
        TestSound test;
        result = QTest::qExec(&test, argc, argv);
    }
    if (started == 0) {
        [[maybe_unused]] const int killed = std::system("pulseaudio --kill 2>/dev/null");
    }
    return result;
}

#include "tst_sound.moc"
