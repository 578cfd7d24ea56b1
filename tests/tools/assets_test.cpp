// The generator run twice gives the same files, byte for byte.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <map>

namespace {

std::map<QString, QByteArray> runGenerator(const QString& folder) {
    QProcess run;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    run.setProcessEnvironment(env);
    run.start(QStringLiteral(MAKE_ASSETS_PROGRAM), {folder});
    EXPECT_TRUE(run.waitForFinished(120000));
    EXPECT_EQ(run.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(run.exitCode(), 0) << run.readAllStandardError().toStdString();

    std::map<QString, QByteArray> files;
    const QDir root(folder);
    QDirIterator it(folder, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << path.toStdString();
        files[root.relativeFilePath(path)] = f.readAll();
    }
    return files;
}

TEST(Generator, TwoRunsGiveTheSameBytes) {
    QTemporaryDir first, second;
    ASSERT_TRUE(first.isValid() && second.isValid());
    const auto a = runGenerator(first.path());
    const auto b = runGenerator(second.path());
    // 3 + 11 pictures, 7 balls, 70 counters and 112 marked ones, each with its
    // @2x twin; 14 sounds.
    ASSERT_EQ(a.size(), 2u * (3 + 11 + 7 + 70 + 112) + 14);
    ASSERT_EQ(a.size(), b.size());
    for (const auto& [name, bytes] : a) {
        const auto other = b.find(name);
        ASSERT_NE(other, b.end()) << name.toStdString();
        EXPECT_TRUE(bytes == other->second) << name.toStdString() << " differs between two runs";
    }
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
