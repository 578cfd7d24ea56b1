#include "text/file_io.h"
#include "text/text_tables.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace fendle {
namespace {

namespace fs = std::filesystem;

class FileIo : public ::testing::Test {
protected:
    void SetUp() override {
        dir = fs::temp_directory_path() / ("fendle_file_io_" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
                                           "_" + ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(dir);
        fs::create_directories(dir);
    }
    void TearDown() override { fs::remove_all(dir); }
    int entries() const { return static_cast<int>(std::distance(fs::directory_iterator(dir), fs::directory_iterator())); }
    fs::path dir;
};

TEST_F(FileIo, WriteReplacesTheFileWhole) {
    const std::string path = (dir / "numlang.txt").string();
    ASSERT_TRUE(writeNumlang(path, 3));
    EXPECT_EQ(readFileBytes(path), "3\r\n");
    ASSERT_TRUE(writeFileAtomic(path, "5\r\n"));
    EXPECT_EQ(readFileBytes(path), "5\r\n");
    EXPECT_EQ(entries(), 1) << "no temporary file is left beside it";
}

TEST_F(FileIo, FailedWriteLeavesTheOldAndNoTemporaryFile) {
    // The target is a folder: the new file cannot take its place.
    const fs::path target = dir / "highscores.txt";
    fs::create_directories(target / "inside");
    std::string error;
    EXPECT_FALSE(writeFileAtomic(target.string(), "x\r\n", &error));
    EXPECT_FALSE(error.empty());
    EXPECT_TRUE(fs::is_directory(target / "inside"));
    EXPECT_EQ(entries(), 1);

    // A folder that does not exist.
    EXPECT_FALSE(writeFileAtomic((dir / "none" / "lastgame.inf").string(), "x", &error));
    EXPECT_EQ(entries(), 1);
}

TEST_F(FileIo, ReadingAMissingFileGivesNothing) {
    EXPECT_FALSE(readFileBytes((dir / "missing.txt").string()).has_value());
    std::ofstream((dir / "empty.txt").string()).close();
    EXPECT_EQ(readFileBytes((dir / "empty.txt").string()), "");
}

TEST(GamePath, BackslashesBecomeSlashes) {
    EXPECT_EQ(gamePath("text\\text.csv"), "text/text.csv");
    EXPECT_EQ(gamePath("counters\\blre2.bmp", "/game"), "/game/counters/blre2.bmp");
    EXPECT_EQ(gamePath("numlang.txt", "/game/"), "/game/numlang.txt");
}

}  // namespace
}  // namespace fendle
