// Sound that really leaves the program. A private PulseAudio server with a
// null sink stands in for the speakers, and parec records its monitor while
// the real screens, with the real Qt sound port, play through a click, a
// throw, a move, a bonus and the end of a game. Each wave that should sound
// is looked for in the recording by its shape: the best match of the wave
// file against the recording, near where it was played, must be that wave
// and no other of the fourteen.
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

constexpr int rate = 48000;   // the null sink's and the recording's rate
QString pulseProblem;         // why no server could be started, if none could
QString runtimeDir;

std::vector<float> readRaw(const QByteArray& bytes) {
    std::vector<float> out(std::size_t(bytes.size() / 2));
    for (std::size_t i = 0; i < out.size(); ++i) {
        const auto lo = static_cast<unsigned char>(bytes[qsizetype(2 * i)]);
        const auto hi = static_cast<signed char>(bytes[qsizetype(2 * i + 1)]);
        out[i] = float(hi * 256 + lo) / 32768.0f;
    }
    return out;
}

// Keeps what lies below about 3 kHz, with no shift in time (one-pole
// filters run forward and back, twice). The sink's resampler and ours agree
// there; above it they differ enough to blur the finest clicks.
std::vector<float> lowPass(std::vector<float> x) {
    const float a = float(1 - std::exp(-2 * M_PI * 3000.0 / rate));
    for (int pass = 0; pass < 2; ++pass) {
        float y = 0;
        for (float& v : x) v = y += a * (v - y);
        y = 0;
        for (auto it = x.rbegin(); it != x.rend(); ++it) *it = y += a * (*it - y);
    }
    return x;
}

// A wave file of the game folder (PCM, 16 bit, mono), brought to the
// recording's rate with a windowed sinc, without the silence at its end and
// without its first 20 ms, which the monitor may lose as a stream starts;
// low-passed as the recording is before the two are compared.
std::vector<float> waveBody(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return {};
    const QByteArray bytes = f.readAll();
    const int dataAt = int(bytes.indexOf("data")) + 8;
    const auto le32 = [&](int at) { return qFromLittleEndian<quint32>(bytes.constData() + at); };
    const double from = le32(24);
    const std::vector<float> in = readRaw(bytes.mid(dataAt, qsizetype(le32(dataAt - 4))));
    std::size_t end = in.size();
    while (end > 0 && std::abs(in[end - 1]) < 1e-4f) --end;
    const double step = from / rate;
    const double cutoff = std::min(1.0, rate / from);
    std::vector<float> out;
    for (std::size_t k = std::size_t(0.020 * rate); double(k) * step < double(end); ++k) {
        const double x = double(k) * step;
        double sum = 0;
        for (long j = long(x) - 7; j <= long(x) + 8; ++j) {
            if (j < 0 || j >= long(end)) continue;
            const double d = x - double(j);
            const double sinc = d == 0 ? 1.0 : std::sin(M_PI * d * cutoff) / (M_PI * d * cutoff);
            const double window = std::abs(d) < 8 ? 0.5 + 0.5 * std::cos(M_PI * d / 8) : 0.0;
            sum += in[std::size_t(j)] * cutoff * sinc * window;
        }
        out.push_back(float(sum));
    }
    return lowPass(out);
}

double loudest(const std::vector<float>& rec) {
    double top = 0;
    for (float x : rec) top = std::max(top, double(std::abs(x)));
    return top;
}

// Normalised correlation of the body at each start in [from, to) of the
// recording: first on every 8th sample of both, then sample by sample round
// the best. Returns the best correlation and where it lies.
std::pair<double, long> bestMatch(const std::vector<float>& rec, const std::vector<float>& body, long from, long to) {
    const auto corr = [&](long at, int stride) {
        double dot = 0, er = 0, eb = 0;
        for (std::size_t k = 0; k < body.size(); k += std::size_t(stride)) {
            const std::size_t i = std::size_t(at) + k;
            if (i >= rec.size()) break;
            dot += double(rec[i]) * body[k];
            er += double(rec[i]) * rec[i];
            eb += double(body[k]) * body[k];
        }
        return er > 0 && eb > 0 ? dot / std::sqrt(er * eb) : 0.0;
    };
    from = std::max(0L, from);
    to = std::min(to, long(rec.size()));
    double best = -1;
    long where = from;
    for (long at = from; at < to; at += 8) {
        const double c = corr(at, 8);
        if (c > best) best = c, where = at;
    }
    const long coarse = where;
    best = -1;
    for (long at = std::max(0L, coarse - 8); at <= coarse + 8 && at < long(rec.size()); ++at) {
        const double c = corr(at, 1);
        if (c > best) best = c, where = at;
    }
    return {best, where};
}

// How much of a wave the recording holds, piece by piece: its body in
// pieces of 100 ms, the first where the wave's start is found between `from`
// and `to`, each further one within 50 ms of where the one before it ended,
// or further either way after a miss. A sink that drops or delays a block
// under load then costs only the piece it hits. Returns the share of the
// pieces found (correlation above 0.8) and where the first one lies.
// Strict: a correlation above 0.9, the first piece must be found, and no
// piece is looked for further on; that is how a rival wave is tried at the
// place where another was found.
std::pair<double, long> heard(const std::vector<float>& rec, const std::vector<float>& body, long from, long to,
                              bool strict = false) {
    const std::size_t piece = std::min<std::size_t>(rate / 10, body.size());
    if (piece == 0) return {0.0, from};
    const auto part = [&](std::size_t k) {
        return std::vector<float>(body.begin() + long(k), body.begin() + long(std::min(body.size(), k + piece)));
    };
    // The wave's first half second places it: a single piece of a rattle
    // could match a later rattle better than its own place.
    const std::vector<float> head(body.begin(), body.begin() + long(std::min<std::size_t>(body.size(), rate / 2)));
    const long first = bestMatch(rec, head, from, to).second;
    const double firstScore = bestMatch(rec, part(0), first - rate / 100, first + rate / 100).first;
    const double enough = strict ? 0.9 : 0.8;
    if (strict && firstScore <= enough) return {0.0, first};
    int found = firstScore > enough, pieces = 1, misses = 0;
    long next = first + long(piece);
    for (std::size_t k = piece; k + piece / 2 < body.size(); k += piece) {
        const std::vector<float> p = part(k);
        if (loudest(p) < 1e-3) {   // a pause within the wave
            next += long(p.size());
            continue;
        }
        ++pieces;
        // After a miss the sound may have been held back or have lost a
        // block: look further either way.
        const long reach = strict ? rate / 20 : rate / 20 + misses * rate / 4;
        const auto [score, where] = bestMatch(rec, p, next - reach, next + reach);
        if (score > enough) {
            ++found;
            misses = 0;
            next = where + long(p.size());
        } else {
            ++misses;
            next += long(p.size());
        }
    }
    return {double(found) / pieces, first};
}

const QStringList allWaves = {"click",   "click1", "tink",  "cupdice", "space",  "key",   "boom",
                              "subping", "laser3", "cash",  "cheer2",  "boink",  "gong",  "crowd"};

// The program's sound port, with the moment of each call.
struct TimedSpeaker : Sound {
    TimedSpeaker(const QElapsedTimer& c, std::vector<std::pair<std::string, qint64>>& l) : clock(&c), log(&l) {}
    QtSound port;
    const QElapsedTimer* clock;
    std::vector<std::pair<std::string, qint64>>* log;
    void playwave(std::string_view name) override {
        log->emplace_back(std::string(name), clock->elapsed());
        port.playwave(name);
    }
};

// parec on the null sink's monitor, into a file.
class Recording {
public:
    explicit Recording(const QString& file) : file_(file) {
        parec_.setStandardOutputFile(file);
        parec_.start("parec", {"-d", "ci_sink.monitor", "--rate=48000", "--channels=1", "--format=s16le", "--raw",
                               "--latency-msec=20"});
        clock.start();
        // Wait until samples flow, and take the time of the first one.
        while (parec_.state() != QProcess::NotRunning && QFileInfo(file).size() < 9600 && clock.elapsed() < 10000)
            QTest::qWait(5);
        startMs = clock.elapsed() - QFileInfo(file).size() * 1000 / (2 * rate);
        // A new stream on the monitor may begin with what the sink played
        // just before; what counts starts here.
        QTest::qWait(300);
        readyAt = sampleAt(clock.elapsed());
    }
    std::vector<float> stop() {
        QTest::qWait(300);
        ::kill(pid_t(parec_.processId()), SIGINT);
        parec_.waitForFinished(5000);
        QFile f(file_);
        return f.open(QIODevice::ReadOnly) ? readRaw(f.readAll()) : std::vector<float>{};
    }
    long sampleAt(qint64 ms) const { return long((ms - startMs) * rate / 1000); }
    bool running() const { return parec_.state() == QProcess::Running; }

    QElapsedTimer clock;
    qint64 startMs = 0;
    long readyAt = 0;   // the first sample that counts

private:
    QString file_;
    QProcess parec_;
};

}  // namespace

class TestSound : public QObject {
    Q_OBJECT

    QTemporaryDir work;

    static void needPulse() {
        if (pulseProblem.isEmpty()) return;
        if (qEnvironmentVariableIsSet("CI")) QFAIL(qPrintable("no PulseAudio in CI: " + pulseProblem));
        QSKIP(qPrintable("no sound server to record from: " + pulseProblem));
    }
    // Waits in real time while a sound plays out; the virtual clock stands.
    static void listen(int ms) { QTest::qWait(ms); }
    // A move in the zone of 50, then a bonus move that completes a path and
    // ends the game. Each throw is let be heard for `ms` * 3 / 2 before the
    // dice spin (on the virtual clock their 2250 ms of spinning run at once,
    // and would hold up the thread that feeds the sound), each move for `ms`.
    static void playTwoMoves(GameRun& g, int ms) {
        for (const auto& [dice, n] : {std::pair{std::array{1, 2, 3, 4}, 36}, std::pair{std::array{1, 1, 1, 1}, 1}}) {
            if (n == 1) g.layPathBut(1, 2);                // 1 lies between 2 and 3: a bonus
            g.scriptDice(dice);
            GameRun::press(g.board(), "Label3", button::throwDice);
            listen(ms * 3 / 2);
            g.clock.advance(2250);
            g.clickHexagon(n);                             // 36 is (1 + 2) x 3 x 4
            listen(ms);
            g.clock.advance(2000);
        }
    }

private slots:
    void aGameIsHeardWaveByWave() {
        needPulse();
        Recording rec(work.filePath("game.raw"));
        QVERIFY(rec.running());
        std::vector<std::pair<std::string, qint64>> played;
        GameRun g(std::make_unique<TimedSpeaker>(rec.clock, played));
        g.open();
        GameRun::press(g.screen("Titlefrm"), "Label5");   // a click
        listen(700);
        GameRun::press(g.screen("Startplay2"), "Label1", 1);
        listen(700);
        playTwoMoves(g, 1200);
        listen(3500);                                      // the end of the game
        const std::vector<float> samples = lowPass(rec.stop());

        const std::vector<std::string> expected = {"wav\\click.wav", "wav\\click.wav", "wav\\cupdice.wav",
                                                   "wav\\space.wav", "wav\\cupdice.wav", "wav\\cash.wav",
                                                   "wav\\crowd.wav"};
        QCOMPARE(g.sound->played, expected);
        QVERIFY(samples.size() > std::size_t(5 * rate));

        QMap<QString, std::vector<float>> bodies;
        for (const QString& w : allWaves) bodies[w] = waveBody(g.file("wav/" + w + ".wav"));
        for (const auto& [name, ms] : played) {
            const QString wave = QString::fromStdString(name).mid(4).chopped(4);
            const long at = rec.sampleAt(ms);
            // The sink plays a sound a little after the call, never before it.
            const auto [score, where] = heard(samples, bodies[wave], at - rate / 8, at + rate * 7 / 10);
            // Any other wave, at the same place.
            QString rival;
            double rivalScore = 0;
            for (const QString& other : allWaves) {
                if (other == wave) continue;
                const double s = heard(samples, bodies[other], where - rate / 20, where + rate / 20, true).first;
                if (s > rivalScore) rivalScore = s, rival = other;
            }
            qInfo("%s played at %lld ms: found at %.3f s, %.0f%% of it (best other there: %s, %.0f%%)",
                  qPrintable(wave), ms, double(where) / rate, 100 * score, rival.isEmpty() ? "none" : qPrintable(rival),
                  100 * rivalScore);
            QVERIFY2(score >= 0.7, qPrintable(wave + " not heard"));
            QVERIFY2(rivalScore < 0.5, qPrintable(wave + " sounds like " + rival));
        }
    }

    void aMissingOrDamagedWaveIsSilentAndNothingWaits() {
        needPulse();
        QTemporaryDir folder;
        QDir::setCurrent(folder.path());
        QDir().mkdir("wav");
        QFile good(QStringLiteral(FENDLE_GAME_DIR "/wav/cash.wav"));
        QVERIFY(good.open(QIODevice::ReadOnly));
        const QByteArray wave = good.readAll();
        const auto write = [](const QString& name, const QByteArray& bytes) {
            QFile f(name);
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write(bytes);
        };
        write("wav/cut.wav", wave.left(wave.size() / 2));          // ends half-way
        write("wav/noise.wav", QByteArray(4000, 'x'));              // not a wave at all
        QByteArray floating = wave;
        floating[20] = 3;                                          // IEEE float, which the player cannot play
        write("wav/float.wav", floating);
        write("wav/ok.wav", wave);

        Recording rec(folder.filePath("damaged.raw"));
        QVERIFY(rec.running());
        auto sound = std::make_unique<QtSound>();
        const qint64 okAt = rec.clock.elapsed();
        QVERIFY(sound->play("wav\\ok.wav"));
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
        const std::vector<float> samples = lowPass(rec.stop());
        QDir::setCurrent(work.path());

        const long okSample = rec.sampleAt(okAt);
        const auto [share, where] = heard(samples, waveBody(folder.filePath("wav/ok.wav")), okSample - rate / 8, okSample + rate * 7 / 10);
        qInfo("ok.wav played at %lld ms: found at %.3f s, %.0f%% of it", okAt, double(where) / rate, 100 * share);
        QVERIFY2(share >= 0.7, "the good wave was not heard");
        const long quietFrom = std::clamp(rec.sampleAt(damagedFrom), 0L, long(samples.size()));
        QVERIFY(long(samples.size()) - quietFrom > rate);
        QVERIFY2(loudest({samples.begin() + quietFrom, samples.end()}) < 1e-3, "a damaged or missing wave made a sound");
    }

    void withSoundOffTheRecordingStaysSilent() {
        needPulse();
        QElapsedTimer clock;
        clock.start();
        std::vector<std::pair<std::string, qint64>> played;
        GameRun g(std::make_unique<TimedSpeaker>(clock, played));
        g.open();
        GameRun::press(g.screen("Titlefrm"), "Label5");
        GameRun::tick(g.screen("Startplay2"), "Check1");   // Play Sound off, with a last click
        listen(1500);
        played.clear();

        Recording rec(work.filePath("silent.raw"));
        QVERIFY(rec.running());
        GameRun::press(g.screen("Startplay2"), "Label1", 1);
        QCOMPARE(int(g.state().soundon), 0);
        playTwoMoves(g, 0);
        g.clock.advance(4000);
        listen(1000);
        const std::vector<float> samples = rec.stop();
        QVERIFY(played.empty());
        QVERIFY(long(samples.size()) > rec.readyAt + rate);
        QVERIFY2(loudest({samples.begin() + rec.readyAt, samples.end()}) < 1e-3, "a sound was heard with sound off");
    }
};

int main(int argc, char** argv) {
    // A server of this test's own, in a private runtime folder, before any
    // part of Qt looks for one.
    QTemporaryDir runtime;
    runtimeDir = runtime.path();
    ::chmod(runtimeDir.toLocal8Bit(), 0700);
    qputenv("XDG_RUNTIME_DIR", runtimeDir.toLocal8Bit());
    qputenv("HOME", runtimeDir.toLocal8Bit());
    qunsetenv("PULSE_SERVER");
    const int started = std::system(
        "pulseaudio --daemonize=yes --exit-idle-time=-1 -n --load=module-native-protocol-unix "
        "--load='module-null-sink sink_name=ci_sink rate=48000' 2>/dev/null");
    if (started != 0) pulseProblem = "pulseaudio (Debian package pulseaudio) did not start";
    else if (std::system("parec --version >/dev/null 2>&1") != 0)
        pulseProblem = "parec (Debian package pulseaudio-utils) is missing";

    int result = 0;
    {
        QApplication app(argc, argv);
        TestSound test;
        result = QTest::qExec(&test, argc, argv);
    }
    QDir::setCurrent(QDir::tempPath());
    if (started == 0) {
        [[maybe_unused]] const int killed = std::system("pulseaudio --kill 2>/dev/null");
    }
    return result;
}

#include "tst_sound.moc"
