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

// The best normalised correlation of `part` with the recording at a start
// in [from, to], and where it lies.
std::pair<double, long> bestMatch(const std::vector<float>& rec, const std::vector<float>& part, long from, long to) {
    std::pair<double, long> best{-1.0, from};
    for (long at = std::max(0L, from); at <= to && at + long(part.size()) <= long(rec.size()); ++at) {
        double dot = 0, er = 0, ep = 0;
        for (std::size_t k = 0; k < part.size(); ++k) {
            const double r = rec[std::size_t(at) + k];
            dot += r * part[k];
            er += r * r;
            ep += double(part[k]) * part[k];
        }
        if (const double c = er > 0 && ep > 0 ? dot / std::sqrt(er * ep) : 0.0; c > best.first) best = {c, at};
    }
    return best;
}

// Where the first half second of a wave matches best between `from` and `to`,
// and how well.
std::pair<double, long> headMatch(const std::vector<float>& rec, const std::vector<float>& body, long from, long to) {
    return bestMatch(rec, {body.begin(), body.begin() + std::min(long(body.size()), long(rate / 2))}, from, to);
}

// How much of a wave the recording holds. Its first half second places it
// between `from` and `to` (a short piece of a rattle could match a later
// rattle better); then its body is looked for in pieces of 100 ms, each
// within 50 ms of where the one before it ended, so that a block that the
// sink drops or delays under load costs only the piece it hits. Returns the
// share of the pieces found (a correlation above 0.8) and where the wave
// begins.
std::pair<double, long> heard(const std::vector<float>& rec, const std::vector<float>& body, long from, long to) {
    const long size = long(body.size()), piece = std::min(size, long(rate / 10));
    const long first = headMatch(rec, body, from, to).second;
    int found = 0, pieces = 0;
    for (long k = 0, next = first; k + piece / 2 < size; k += piece) {
        const std::vector<float> part(body.begin() + k, body.begin() + std::min(size, k + piece));
        if (loudest(part) >= 1e-3) {   // not a pause within the wave
            ++pieces;
            const auto [score, where] = bestMatch(rec, part, next - rate / 20, next + rate / 20);
            if (score > 0.8) ++found, next = where;
        }
        next += long(part.size());
    }
    return {pieces ? double(found) / pieces : 0.0, first};
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
        // A new stream on the monitor may begin with what the sink played
        // just before; what counts starts here.
        QTest::qWait(300);
        readyAt = sampleAt(clock.elapsed());
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
    long readyAt = 0;   // the first sample that counts

private:
    QProcess parec_;
};

}  // namespace

class TestSound : public QObject {
    Q_OBJECT

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
    // Before each test: with no server, a skip that says why, or in CI a failure.
    void init() {
        if (pulseProblem.isEmpty()) return;
        if (qEnvironmentVariableIsSet("CI")) QFAIL(qPrintable("no PulseAudio in CI: " + pulseProblem));
        QSKIP(qPrintable("no sound server to record from: " + pulseProblem));
    }

    void aGameIsHeardWaveByWave() {
        Recording rec;
        QVERIFY(rec.running());
        std::vector<std::pair<std::string, qint64>> played;
        GameRun g(std::make_unique<TimedSpeaker>(rec.clock, played));
        g.setUp();   // a click
        listen(700);
        GameRun::press(g.screen("Startplay2"), "Label1", 1);
        listen(700);
        playTwoMoves(g, 1200);
        listen(3500);                                      // the end of the game
        const std::vector<float> samples = rec.stop();

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
            // There, that wave matches better than any other.
            const auto there = [&](const QString& w) { return headMatch(samples, bodies[w], where - rate / 100, where + rate / 100).first; };
            QString rival;
            double rivalScore = -1;
            for (const QString& other : allWaves) {
                const double s = other == wave ? -1 : there(other);
                if (s > rivalScore) rivalScore = s, rival = other;
            }
            const double own = there(wave);
            qInfo("%s played at %lld ms: found at %.3f s (%.2f), %.0f%% of it; the best other there: %s (%.2f)",
                  qPrintable(wave), ms, double(where) / rate, own, 100 * score, qPrintable(rival), rivalScore);
            QVERIFY2(score >= 0.7, qPrintable(wave + " not heard"));
            QVERIFY2(own > rivalScore + 0.05, qPrintable(wave + " sounds like " + rival));
        }
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
        const qint64 okAt = rec.clock.elapsed();
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

        const long okSample = rec.sampleAt(okAt);
        const auto [share, where] = heard(samples, waveBody(g.file("wav/cash.wav")), okSample - rate / 8, okSample + rate * 7 / 10);
        qInfo("cash.wav played at %lld ms: found at %.3f s, %.0f%% of it", okAt, double(where) / rate, 100 * share);
        QVERIFY2(share >= 0.7, "the good wave was not heard");
        const long quietFrom = std::clamp(rec.sampleAt(damagedFrom), 0L, long(samples.size()));
        QVERIFY(long(samples.size()) - quietFrom > rate);
        QVERIFY2(loudest({samples.begin() + quietFrom, samples.end()}) < 1e-3, "a damaged or missing wave made a sound");
    }

    void withSoundOffTheRecordingStaysSilent() {
        GameRun g(std::make_unique<QtSound>());
        GameRun::tick(g.setUp(), "Check1");   // Play Sound off, with a last click
        listen(1500);
        const std::size_t before = g.sound->played.size();

        Recording rec;
        QVERIFY(rec.running());
        GameRun::press(g.screen("Startplay2"), "Label1", 1);
        QCOMPARE(int(g.state().soundon), 0);
        playTwoMoves(g, 0);
        g.clock.advance(4000);
        listen(1000);
        const std::vector<float> samples = rec.stop();
        QCOMPARE(g.sound->played.size(), before);
        QVERIFY(long(samples.size()) > rec.readyAt + rate);
        QVERIFY2(loudest({samples.begin() + rec.readyAt, samples.end()}) < 1e-3, "a sound was heard with sound off");
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
