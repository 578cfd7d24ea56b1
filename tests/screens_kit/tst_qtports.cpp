// The ports of the running program: QtTimerBank on a real event loop, the
// clock-seeded generator, and playwave with good and bad wave files.
#include <QBuffer>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QtEndian>

#include <set>

#include "screens/qt_ports.h"

using namespace fendle;

namespace {

struct WaveShape {
    quint16 tag = 1;
    quint16 channels = 1;
    quint32 rate = 22050;
    quint16 bits = 16;
    int blockAlign = -1;   // -1: channels * bits / 8
    int samples = 400;
    int cutBytes = 0;      // bytes chopped off the end of the file
    bool formatChunk = true;
    bool dataFirst = false;
    QByteArray extraChunk{};   // put between the format and the data
};

void put16(QByteArray& b, quint16 v) {
    char c[2];
    qToLittleEndian(v, c);
    b.append(c, 2);
}
void put32(QByteArray& b, quint32 v) {
    char c[4];
    qToLittleEndian(v, c);
    b.append(c, 4);
}
QByteArray chunk(const char* id, const QByteArray& body) {
    QByteArray b(id, 4);
    put32(b, quint32(body.size()));
    b += body;
    if (body.size() & 1) b += '\0';
    return b;
}

QByteArray makeWave(const WaveShape& s) {
    QByteArray fmt;
    put16(fmt, s.tag);
    put16(fmt, s.channels);
    put32(fmt, s.rate);
    const quint16 align = s.blockAlign >= 0 ? quint16(s.blockAlign) : quint16(s.channels * s.bits / 8);
    put32(fmt, s.rate * align);
    put16(fmt, align);
    put16(fmt, s.bits);
    QByteArray data(s.samples * std::max<int>(1, s.channels * s.bits / 8), '\x10');
    QByteArray body("WAVE");
    if (s.dataFirst) body += chunk("data", data);
    if (s.formatChunk) body += chunk("fmt ", fmt);
    body += s.extraChunk;
    if (!s.dataFirst) body += chunk("data", data);
    QByteArray file("RIFF");
    put32(file, quint32(body.size()));
    file += body;
    file.chop(s.cutBytes);
    return file;
}

bool check(const QByteArray& bytes) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return isPlayableWave(buffer);
}

}  // namespace

class QtPortsTest : public QObject {
    Q_OBJECT

private slots:
    void timersRepeatAndStop();
    void startOnRunningTimerKeepsItsCount();
    void newIntervalRestartsTheCount();
    void clockRandomReseeds();
    void waveCheck_data();
    void waveCheck();
    void playwaveNeverWaits();
};

void QtPortsTest::timersRepeatAndStop() {
    QtTimerBank bank;
    std::vector<int> ticks;
    bank.bind([&](int t) {
        ticks.push_back(t);
        if (t == 3 && std::count(ticks.begin(), ticks.end(), 3) == 3) bank.stop(3);
    });
    QCOMPARE(bank.interval(3), 1000);
    bank.setInterval(3, 10);
    bank.setInterval(4, 0);   // below 1 ms counts as 1 ms
    QCOMPARE(bank.interval(4), 1);
    QVERIFY(!bank.running(3));
    bank.start(3);
    QVERIFY(bank.running(3));
    QTRY_VERIFY_WITH_TIMEOUT(!bank.running(3), 10000);
    QCOMPARE(std::count(ticks.begin(), ticks.end(), 3), 3);
    QTest::qWait(50);
    QCOMPARE(std::count(ticks.begin(), ticks.end(), 3), 3);   // stopped in its own handler: no more

    // Numbers outside 1 to 11 are no timers.
    for (int t : {0, 12, -1}) {
        bank.setInterval(t, 10);
        bank.start(t);
        QVERIFY(!bank.running(t));
        QCOMPARE(bank.interval(t), 0);
    }
}

void QtPortsTest::startOnRunningTimerKeepsItsCount() {
    // Start is pressed again and again, faster than the timer's interval: if
    // it restarted the count, the timer would never tick.
    QtTimerBank bank;
    int ticks = 0;
    bank.bind([&](int) { ++ticks; });
    bank.setInterval(1, 300);
    bank.start(1);
    QTimer hammer;
    QObject::connect(&hammer, &QTimer::timeout, [&] { bank.start(1); });
    hammer.start(10);
    QTRY_VERIFY_WITH_TIMEOUT(ticks > 0, 15000);
}

void QtPortsTest::newIntervalRestartsTheCount() {
    // A new interval given again and again, faster than the interval itself:
    // the count starts over each time, so the timer does not tick until the
    // calls stop.
    QtTimerBank bank;
    int ticks = 0;
    bank.bind([&](int) { ++ticks; });
    bank.setInterval(7, 1500);
    bank.start(7);
    QTimer hammer;
    QObject::connect(&hammer, &QTimer::timeout, [&] { bank.setInterval(7, 1500); });
    hammer.start(10);
    QTest::qWait(3000);
    hammer.stop();
    QCOMPARE(ticks, 0);
    QVERIFY(bank.running(7));
    QTRY_VERIFY_WITH_TIMEOUT(ticks > 0, 15000);
}

void QtPortsTest::clockRandomReseeds() {
    // A clock stuck on one value: reseeds still give new sequences.
    ClockRandom stuck([] { return std::int64_t(43'200'000'000'000); });
    std::set<double> firsts;
    for (int i = 0; i < 50; ++i) {
        stuck.randomize();
        firsts.insert(stuck.rnd());
    }
    QCOMPARE(firsts.size(), std::size_t(50));

    // The time of day decides the sequence.
    std::int64_t now = 1000;
    ClockRandom a([&] { return now; }), b([&] { return now; });
    QCOMPARE(a.rnd(), b.rnd());
    now = 1001;
    a.randomize();
    now = 1002;
    b.randomize();
    QVERIFY(a.rnd() != b.rnd());

    // Uniform on [0, 1).
    ClockRandom r;
    double sum = 0, low = 1, high = 0;
    int buckets[10] = {};
    const int n = 100000;
    for (int i = 0; i < n; ++i) {
        const double x = r.rnd();
        QVERIFY(x >= 0.0 && x < 1.0);
        sum += x;
        low = std::min(low, x);
        high = std::max(high, x);
        ++buckets[int(x * 10)];
    }
    QVERIFY(std::abs(sum / n - 0.5) < 0.01);
    QVERIFY(low < 0.001 && high > 0.999);
    for (int k : buckets) QVERIFY(std::abs(k - n / 10) < n / 100);
}

void QtPortsTest::waveCheck_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("playable");
    QTest::newRow("16-bit mono") << makeWave({}) << true;
    QTest::newRow("8-bit stereo") << makeWave({.channels = 2, .bits = 8}) << true;
    QTest::newRow("24-bit") << makeWave({.bits = 24}) << true;
    QTest::newRow("odd chunk before data") << makeWave({.extraChunk = chunk("LIST", "abc")}) << true;
    QTest::newRow("empty file") << QByteArray() << false;
    QTest::newRow("not RIFF") << makeWave({}).replace(0, 4, "RIFX") << false;
    QTest::newRow("header only") << makeWave({}).left(20) << false;
    QTest::newRow("data cut short") << makeWave({.cutBytes = 100}) << false;
    QTest::newRow("float") << makeWave({.tag = 3, .bits = 32}) << false;
    QTest::newRow("extensible") << makeWave({.tag = 0xFFFE}) << false;
    QTest::newRow("12-bit") << makeWave({.bits = 12}) << false;
    QTest::newRow("block size wrong") << makeWave({.blockAlign = 4}) << false;
    QTest::newRow("no channels") << makeWave({.channels = 0}) << false;
    QTest::newRow("no format chunk") << makeWave({.formatChunk = false}) << false;
    QTest::newRow("data before format") << makeWave({.dataFirst = true}) << false;
    QTest::newRow("no samples") << makeWave({.samples = 0}) << false;
    QTest::newRow("chunk size past the end") << makeWave({.extraChunk = QByteArray("JUNK\xff\xff\xff\x7f", 8)})
                                             << false;
}

void QtPortsTest::waveCheck() {
    QFETCH(QByteArray, bytes);
    QFETCH(bool, playable);
    QCOMPARE(check(bytes), playable);
}

void QtPortsTest::playwaveNeverWaits() {
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString oldCwd = QDir::currentPath();
    QVERIFY(QDir::setCurrent(dir.path()));
    auto restore = qScopeGuard([&] { QDir::setCurrent(oldCwd); });
    QDir().mkpath(QStringLiteral("wav"));
    auto write = [](const char* name, const QByteArray& bytes) {
        QFile f(QString::fromLatin1(name));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    };
    write("wav/click.wav", makeWave({.samples = 22050}));
    write("wav/cut.wav", makeWave({.samples = 22050, .cutBytes = 1000}));
    write("wav/float.wav", makeWave({.tag = 3, .bits = 32}));

    {
        QtSound sound;
        QVERIFY(!sound.play("wav\\missing.wav"));
        QVERIFY(!sound.play("wav\\cut.wav"));
        QVERIFY(!sound.play("wav\\float.wav"));
        QVERIFY(sound.play("wav\\click.wav"));
        QVERIFY(sound.play("wav\\click.wav"));   // again at once: cuts the first
        QVERIFY(!sound.play("wav\\cut.wav"));
        for (const char* name : {"wav\\click.wav", "wav\\missing.wav", "wav\\float.wav"}) sound.playwave(name);
        QTest::qWait(100);
    }
    // The sound has gone with its player and nothing hangs; a fresh player
    // that is destroyed while its sound loads does not hang either.
    QtSound last;
    QVERIFY(last.play("wav\\click.wav"));
}

QTEST_MAIN(QtPortsTest)
#include "tst_qtports.moc"
