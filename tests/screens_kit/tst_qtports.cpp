// The ports of the running program: QtTimerBank on a real event loop, the
// clock-seeded generator, and the check of a wave file before it plays.
#include <QBuffer>
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
    QByteArray extraChunk{};   // put between the format and the data
};

template <class T>
void put(QByteArray& b, T v) {
    char c[sizeof v];
    qToLittleEndian(v, c);
    b.append(c, sizeof v);
}
QByteArray chunk(const char* id, const QByteArray& body) {
    QByteArray b(id, 4);
    put(b, quint32(body.size()));
    b += body;
    if (body.size() & 1) b += '\0';
    return b;
}

QByteArray makeWave(const WaveShape& s) {
    QByteArray fmt;
    const quint16 align = s.blockAlign >= 0 ? quint16(s.blockAlign) : quint16(s.channels * s.bits / 8);
    put(fmt, s.tag);
    put(fmt, s.channels);
    put(fmt, s.rate);
    put(fmt, quint32(s.rate * align));
    put(fmt, align);
    put(fmt, s.bits);
    QByteArray data(s.samples * std::max<int>(1, s.channels * s.bits / 8), '\x10');
    QByteArray body("WAVE");
    if (s.formatChunk) body += chunk("fmt ", fmt);
    body += s.extraChunk + chunk("data", data);
    QByteArray file("RIFF");
    put(file, quint32(body.size()));
    file += body;
    file.chop(s.cutBytes);
    return file;
}

}  // namespace

class QtPortsTest : public QObject {
    Q_OBJECT

private slots:

    void timersRepeatAndStop() {
        QtTimerBank bank;
        int threes = 0;
        bank.bind([&](int t) {
            if (t == 3 && ++threes == 3) bank.stop(3);
        });
        QCOMPARE(bank.interval(3), 1000);
        bank.setInterval(3, 10);
        // No timer ticks faster than a screen can show: below 15 ms counts as 15.
        for (const auto& [asked, given] : {std::pair{0, 15}, {5, 15}, {14, 15}, {15, 15}, {16, 16}, {250, 250}}) {
            bank.setInterval(4, asked);
            QCOMPARE(bank.interval(4), given);
        }
        QVERIFY(!bank.running(3));
        bank.start(3);
        QVERIFY(bank.running(3));
        QTRY_VERIFY_WITH_TIMEOUT(!bank.running(3), 10000);
        QTest::qWait(50);
        QCOMPARE(threes, 3);   // stopped in its own handler: no more
    }

    void startKeepsTheCountNewIntervalRestartsIt() {
        // Timer 1 is started again and again, timer 7 given a new interval again
        // and again, both faster than their intervals: timer 1 still ticks, timer
        // 7 does not until the calls stop.
        QtTimerBank bank;
        int ticks[12] = {};
        bank.bind([&](int t) { ++ticks[t]; });
        bank.setInterval(1, 300);
        bank.setInterval(7, 1500);
        bank.start(1);
        bank.start(7);
        QTimer hammer;
        QObject::connect(&hammer, &QTimer::timeout, [&] {
            bank.start(1);
            bank.setInterval(7, 1500);
        });
        hammer.start(10);
        QTRY_VERIFY_WITH_TIMEOUT(ticks[1] > 0, 15000);
        QTest::qWait(3000);
        hammer.stop();
        QCOMPARE(ticks[7], 0);
        QVERIFY(bank.running(7));
        QTRY_VERIFY_WITH_TIMEOUT(ticks[7] > 0, 15000);
    }

    void clockRandomReseeds() {
        // A clock stuck on one value: reseeds still give new sequences.
        ClockRandom stuck([] { return std::int64_t(43'200'000'000'000); });
        std::set<double> firsts;
        for (int i = 0; i < 50; ++i) {
            stuck.randomize();
            firsts.insert(stuck.rnd());
        }
        QCOMPARE(firsts.size(), std::size_t(50));

        // Uniform on [0, 1).
        ClockRandom r;
        int buckets[10] = {};
        const int n = 100000;
        for (int i = 0; i < n; ++i) {
            const double x = r.rnd();
            QVERIFY(x >= 0.0 && x < 1.0);
            ++buckets[int(x * 10)];
        }
        for (int k : buckets) QVERIFY(std::abs(k - n / 10) < n / 100);
    }

    void waveCheck_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("playable");
        QTest::newRow("16-bit mono") << makeWave({}) << true;
        QTest::newRow("8-bit stereo") << makeWave({.channels = 2, .bits = 8}) << true;
        QTest::newRow("odd chunk before data") << makeWave({.extraChunk = chunk("LIST", "abc")}) << true;
        QTest::newRow("empty file") << QByteArray() << false;
        QTest::newRow("not RIFF") << makeWave({}).replace(0, 4, "RIFX") << false;
        QTest::newRow("data cut short") << makeWave({.cutBytes = 100}) << false;
        QTest::newRow("float") << makeWave({.tag = 3, .bits = 32}) << false;
        QTest::newRow("12-bit") << makeWave({.bits = 12}) << false;
        QTest::newRow("block size wrong") << makeWave({.blockAlign = 4}) << false;
        QTest::newRow("no format chunk") << makeWave({.formatChunk = false}) << false;
        QTest::newRow("no samples") << makeWave({.samples = 0}) << false;
        QTest::newRow("chunk size past the end") << makeWave({.extraChunk = QByteArray("JUNK\xff\xff\xff\x7f", 8)})
                                                 << false;
    }

    void waveCheck() {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, playable);
        QBuffer buffer(&bytes);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        QCOMPARE(isPlayableWave(buffer), playable);
    }
};

QTEST_MAIN(QtPortsTest)
#include "tst_qtports.moc"
