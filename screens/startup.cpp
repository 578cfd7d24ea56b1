#include "screens/startup.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QGuiApplication>
#include <QStandardPaths>

#include <cstdio>
#include <string>

#include "screens/game_screens.h"
#include "screens/languages_form.h"
#include "screens/scale.h"
#include "text/file_io.h"
#include "text/game_paths.h"
#include "text/messages.h"
#include "text/text_tables.h"

#ifndef FENDLE_VERSION
#define FENDLE_VERSION "0"
#endif

namespace fendle {

void nameApplication() {
    QCoreApplication::setApplicationName(QStringLiteral("fendle"));
    QCoreApplication::setApplicationVersion(QStringLiteral(FENDLE_VERSION));
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        QGuiApplication::setApplicationDisplayName(QStringLiteral("Fendle!"));
        QGuiApplication::setDesktopFileName(QString::fromLatin1(applicationId));
    }
}

std::optional<int> readCommandLine(int argc, char** argv, CommandLine& out) {
    QCoreApplication core(argc, argv);
    nameApplication();

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Fendle! is a board game of mental arithmetic for one to four players: throw four dice, make a whole\n"
        "number from them with + - x / and claim it on a board of 100 hexagons."));
    // Qt's own options are written with one dash ("-platform offscreen").
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    const QCommandLineOption scale(
        QStringLiteral("scale"),
        QStringLiteral("Shows every window <scale> times its size, from %1 to %2 as far as the board fits the "
                       "screen: 1 gives the board its 800 x 600 pixels. Without it the board fills the screen. "
                       "FENDLE_SCALE in the environment does the same.")
            .arg(smallestScale)
            .arg(largestScale),
        QStringLiteral("scale"));
    parser.addOption(scale);
    // The options the application object takes for itself, accepted here and
    // left to it; --help-all lists them.
    QStringList qtOptions;
    for (const char* name : {"platform", "platformpluginpath", "platformtheme", "plugin", "qwindowgeometry",
                             "qwindowtitle", "qwindowicon", "display", "geometry", "style", "stylesheet", "session"}) {
        QCommandLineOption qt(QString::fromLatin1(name), QString(), QStringLiteral("value"));
        qt.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(qt);
        qtOptions << QStringLiteral("  -%1 <value>").arg(QLatin1String(name));
    }
    for (const char* name : {"reverse", "widgetcount", "nograb", "dograb", "sync"}) {
        QCommandLineOption qt(QString::fromLatin1(name));
        qt.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(qt);
        qtOptions << QStringLiteral("  -%1").arg(QLatin1String(name));
    }
    const QCommandLineOption helpAll(QStringLiteral("help-all"));

    // The usage names the program as it is known on the menu and in $PATH,
    // not by the path it was started from.
    const auto helpText = [&parser] {
        QString text = parser.helpText();
        text.replace(QCoreApplication::arguments().constFirst() + QStringLiteral(" [options]"),
                     QStringLiteral("fendle [options]"));
        return text;
    };
    const auto usage = [&helpText](const QString& why) {
        std::fprintf(stderr, "fendle: %s\n\n%s", qPrintable(why), qPrintable(helpText()));
        return 2;
    };
    if (!parser.parse(QCoreApplication::arguments())) return usage(parser.errorText());
    if (parser.isSet(help)) {
        std::fputs(qPrintable(helpText()), stdout);
        return 0;
    }
    // Qt's parser lists --help-all beside --help and answers it only in
    // process(), which this reading does without.
    if (parser.isSet(helpAll)) {
        std::fputs(qPrintable(helpText()), stdout);
        std::printf("\nQt options, passed to Qt:\n%s\n", qPrintable(qtOptions.join(QLatin1Char('\n'))));
        return 0;
    }
    if (parser.isSet(version)) {
        std::printf("fendle %s\n", FENDLE_VERSION);
        return 0;
    }
    if (!parser.positionalArguments().isEmpty())
        return usage(QStringLiteral("unexpected argument '%1'").arg(parser.positionalArguments().first()));
    if (parser.isSet(scale)) {
        out.scale = parseScale(parser.value(scale));
        if (!out.scale)
            return usage(QStringLiteral("--scale takes a number from %1 to %2, such as 1.5")
                             .arg(smallestScale)
                             .arg(largestScale));
    }
    return std::nullopt;
}

namespace {

// The message in the language of numlang.txt, or of the desktop without one,
// when a table of messages can be read in one of the folders looked in; else
// in English.
QString missingDataMessage(const FolderChoice& choice, const std::string& userFolder) {
    std::string folders;
    for (const std::string& f : choice.looked) folders += "\n" + f;
    MessageTable table;
    for (const std::string& f : choice.looked)
        if (table.read(readFileBytes(gamePath(messagesCsvFile, f)))) break;
    const std::optional<std::string> saved = readFileBytes(gamePath(numlangFile, userFolder));
    std::int16_t language = saved ? 0 : std::int16_t(desktopLanguage());
    std::string name;
    readlanguagefile(saved, language, name);
    return QString::fromStdString(table.text(msg::dataFolderMissing, language, folders));
}

}  // namespace

QIcon applicationIcon() {
    QIcon icon;
    const QString hicolor = QString::fromStdString(gameFolders().data) + QStringLiteral("/../icons/hicolor/");
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        const QString file = hicolor + QStringLiteral("%1x%1/apps/%2.png").arg(size).arg(QLatin1String(applicationId));
        if (QFileInfo::exists(file)) icon.addFile(file, QSize(size, size));
    }
    return icon;
}

bool findGameFolders() {
    // Qt 6.4 knows no state folder: it is read from the environment.
    const std::string user = userStateFolder([](const char* name) { return qEnvironmentVariable(name).toStdString(); });
    const FolderChoice choice = chooseGameFolders(QCoreApplication::applicationDirPath().toStdString(), user);
    // Earlier versions kept the user's files in ~/.local/share/fendle, where
    // an install under ~/.local put the data too.
    if (choice.folders && choice.folders->user == user)
        moveOwnFiles(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation).toStdString(), user);
    if (!choice.folders) {
        // Said on stderr too, for a terminal or a script that sees no dialog.
        const QString message = missingDataMessage(choice, user);
        std::fprintf(stderr, "fendle: %s\n", qPrintable(message));
        tellUser(message);
        return false;
    }
    useGameFolders(*choice.folders);
    return true;
}

}  // namespace fendle
