#include "text/file_io.h"
#include "text/text_tables.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>

namespace fendle {
namespace {

namespace fs = std::filesystem;

TEST(FileIo, AWriteReplacesTheFileWholeOrLeavesTheOld) {
    const fs::path dir = fs::temp_directory_path() / ("fendle_file_io_" + std::to_string(::getpid()));
    fs::remove_all(dir);
    fs::create_directories(dir);
    const auto entries = [&] { return std::distance(fs::directory_iterator(dir), fs::directory_iterator()); };
    const std::string path = (dir / "numlang.txt").string();
    ASSERT_TRUE(writeNumlang(path, 3));
    EXPECT_EQ(readFileBytes(path), "3\r\n");
    ASSERT_TRUE(writeFileAtomic(path, "5\r\n"));
    EXPECT_EQ(readFileBytes(path), "5\r\n");
    EXPECT_EQ(entries(), 1) << "no temporary file is left beside it";
    EXPECT_FALSE(readFileBytes((dir / "missing.txt").string()).has_value());

    // The target is a folder: the new file cannot take its place.
    fs::create_directories(dir / "highscores.txt" / "inside");
    std::string error;
    EXPECT_FALSE(writeFileAtomic((dir / "highscores.txt").string(), "x\r\n", &error));
    EXPECT_FALSE(error.empty());
    EXPECT_TRUE(fs::is_directory(dir / "highscores.txt" / "inside"));
    EXPECT_FALSE(writeFileAtomic((dir / "none" / "lastgame.inf").string(), "x", &error));   // no such folder
    EXPECT_EQ(entries(), 2);
    fs::remove_all(dir);
}

}  // namespace
}  // namespace fendle
