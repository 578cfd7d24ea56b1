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

// A wave of 200 samples of 16 bits, mono at 22050 Hz, with some 16-bit fields
// of its header changed: the format tag at 20, the channels at 22, the block
// size at 32, the bits at 34 and the data's size at 40.
QByteArray wave(std::initializer_list<std::pair<int, quint16>> fields = {}) {
    QByteArray b = QByteArray::fromHex("52494646b401000057415645666d7420100000000100010022560000"
                                       "44ac0000020010006461746190010000") + QByteArray(400, '\x10');
    for (const auto& [at, value] : fields) qToLittleEndian(value, b.data() + at);
    return b;
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
        const QByteArray oddChunk = QByteArray("LIST\x03\0\0\0abc\0", 12), pastTheEnd("JUNK\xff\xff\xff\x7f", 8);
        QTest::newRow("16-bit mono") << wave() << true;
        QTest::newRow("8-bit stereo") << wave({{22, 2}, {34, 8}}) << true;
        QTest::newRow("odd chunk before data") << wave().insert(36, oddChunk) << true;
        QTest::newRow("empty file") << QByteArray() << false;
        QTest::newRow("not RIFF") << wave().replace(0, 4, "RIFX") << false;
        QTest::newRow("data cut short") << wave().chopped(100) << false;
        QTest::newRow("float") << wave({{20, 3}, {32, 4}, {34, 32}}) << false;
        QTest::newRow("12-bit") << wave({{32, 1}, {34, 12}}) << false;
        QTest::newRow("block size wrong") << wave({{32, 4}}) << false;
        QTest::newRow("no format chunk") << wave().replace(12, 4, "junk") << false;
        QTest::newRow("no samples") << wave({{40, 0}}).left(44) << false;
        QTest::newRow("chunk size past the end") << wave().insert(36, pastTheEnd) << false;
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
