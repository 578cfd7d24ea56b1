#include "screens/qt_ports.h"

#include <QBuffer>
#include <QFile>
#include <QSoundEffect>
#include <QTimer>
#include <QUrl>
#include <QtEndian>

#include <algorithm>
#include <chrono>
#include <ctime>

#include "screens/kit/pictures.h"

namespace fendle {

// ---------------------------------------------------------------- QtTimerBank

QtTimerBank::QtTimerBank() : owner_(std::make_unique<QObject>()) {
    for (int t = 1; t < maxTimers; ++t) {
        auto* timer = new QTimer(owner_.get());
        timer->setInterval(1000);
        timer->setSingleShot(false);
        QObject::connect(timer, &QTimer::timeout, owner_.get(), [this, t] {
            if (handler_) {
                const Handler h = handler_;   // the handler may rebind
                h(t);
            }
        });
        timers_[std::size_t(t)] = timer;
    }
}

QtTimerBank::~QtTimerBank() = default;

QTimer* QtTimerBank::at(int timer) const {
    return timer >= 1 && timer < maxTimers ? timers_[std::size_t(timer)] : nullptr;
}

void QtTimerBank::setInterval(int timer, int ms) {
    // QTimer restarts an active timer on a new interval, as the port wants.
    if (QTimer* t = at(timer)) t->setInterval(std::max(ms, minimumInterval));
}

int QtTimerBank::interval(int timer) const {
    const QTimer* t = at(timer);
    return t ? t->interval() : 0;
}

void QtTimerBank::start(int timer) {
    QTimer* t = at(timer);
    if (t && !t->isActive()) t->start();
}

void QtTimerBank::stop(int timer) {
    if (QTimer* t = at(timer)) t->stop();
}

bool QtTimerBank::running(int timer) const {
    const QTimer* t = at(timer);
    return t && t->isActive();
}

void FormTimers::close() {
    closed_ = true;
    for (int t = 1; t < maxTimers; ++t) bank_->stop(t);
}

// ---------------------------------------------------------------- ClockRandom

namespace {

std::int64_t nanosecondsSinceMidnight() {
    using namespace std::chrono;
    const auto now = system_clock::now();
    const std::time_t secs = system_clock::to_time_t(now);
    std::tm local{};
    localtime_r(&secs, &local);
    const auto subsecond = duration_cast<nanoseconds>(now.time_since_epoch()) % seconds(1);
    const std::int64_t wholeSeconds = local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec;
    return wholeSeconds * 1'000'000'000 + subsecond.count();
}

std::uint64_t splitmix(std::uint64_t& state) {
    std::uint64_t z = (state += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

}  // namespace

ClockRandom::ClockRandom(Clock clock) : clock_(clock ? std::move(clock) : Clock(nanosecondsSinceMidnight)) {
    randomize();
}

void ClockRandom::randomize() {
    std::uint64_t mix = std::uint64_t(clock_()) ^ (0xD1B54A32D192ED03ull * ++reseeds_);
    state_ = splitmix(mix);
}

double ClockRandom::rnd() { return double(splitmix(state_) >> 11) * 0x1.0p-53; }

// ---------------------------------------------------------------- waves

namespace {

bool readExactly(QIODevice& d, char* into, qint64 n) { return d.read(into, n) == n; }

}  // namespace

bool isPlayableWave(QIODevice& file) {
    char head[12];
    if (!readExactly(file, head, 12)) return false;
    if (std::string_view(head, 4) != "RIFF" || std::string_view(head + 8, 4) != "WAVE") return false;
    const qint64 total = file.size();
    bool haveFormat = false;
    qint64 pos = 12;
    while (pos + 8 <= total) {
        if (!file.seek(pos)) return false;
        char chunk[8];
        if (!readExactly(file, chunk, 8)) return false;
        const std::string_view id(chunk, 4);
        const qint64 size = qFromLittleEndian<quint32>(chunk + 4);
        const qint64 body = pos + 8;
        if (body + size > total) return false;   // cut short
        if (id == "fmt ") {
            if (size < 16) return false;
            char fmt[16];
            if (!readExactly(file, fmt, 16)) return false;
            const auto tag = qFromLittleEndian<quint16>(fmt);
            const auto channels = qFromLittleEndian<quint16>(fmt + 2);
            const auto rate = qFromLittleEndian<quint32>(fmt + 4);
            const auto blockAlign = qFromLittleEndian<quint16>(fmt + 12);
            const auto bits = qFromLittleEndian<quint16>(fmt + 14);
            const bool bitsOk = bits == 8 || bits == 16 || bits == 24 || bits == 32;
            if (tag != 1 || channels < 1 || channels > 2 || rate == 0 || !bitsOk ||
                blockAlign != channels * bits / 8)
                return false;
            haveFormat = true;
        } else if (id == "data") {
            return haveFormat && size > 0;
        }
        pos = body + size + (size & 1);
    }
    return false;
}

bool isPlayableWave(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) && isPlayableWave(f);
}

// ---------------------------------------------------------------- QtSound

namespace {

// Qt warns "No audio device detected" at every sound it cannot play for want
// of a device: once is enough for a log. Every other message goes on to the
// handler there was.
QtMessageHandler otherMessages = nullptr;

void sayNoDeviceOnce(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    static bool said = false;
    if (text == QLatin1String("No audio device detected")) {
        if (said) return;
        said = true;
    }
    otherMessages(type, context, text);
}

}  // namespace

QtSound::QtSound() {
    static const bool installed = [] {
        otherMessages = qInstallMessageHandler(sayNoDeviceOnce);
        return true;
    }();
    (void)installed;
}
QtSound::~QtSound() = default;

bool QtSound::play(std::string_view filename) {
    if (effect_) effect_->stop();
    const QString path = hostPath(filename);
    if (!isPlayableWave(path)) return false;
    if (!effect_) effect_ = std::make_unique<QSoundEffect>();
    effect_->setSource(QUrl::fromLocalFile(path));
    effect_->play();
    return true;
}

}  // namespace fendle
