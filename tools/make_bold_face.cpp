// Writes the game's bold Tahoma into the game folder:
//   make_bold_face <spacing.ttf> <shapes.ttf> <out.ttf>
// with the clone's bold file as <spacing.ttf> and DejaVu Sans Bold as
// <shapes.ttf>. When either is missing or cannot be read as a face, it
// writes nothing (and removes an <out.ttf> left from before): the game then
// uses the clone's bold file as it is.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>

#include "tools/bold_face.h"

namespace {

std::optional<std::string> readFile(const char* path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return std::nullopt;
    std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (in.bad()) return std::nullopt;
    return bytes;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: %s <spacing.ttf> <shapes.ttf> <out.ttf>\n", argv[0]);
        return 2;
    }
    const std::filesystem::path out = argv[3];
    std::error_code ec;
    const auto spacing = readFile(argv[1]), shapes = readFile(argv[2]);
    if (!spacing || !shapes) {
        std::fprintf(stderr, "make_bold_face: %s not found: no fitted bold face\n", !spacing ? argv[1] : argv[2]);
        std::filesystem::remove(out, ec);
        return 0;
    }
    const auto face = fendle::font::fitBoldFace(*spacing, *shapes);
    if (!face) {
        std::fprintf(stderr, "make_bold_face: %s and %s do not make a bold face: none written\n", argv[1], argv[2]);
        std::filesystem::remove(out, ec);
        return 0;
    }
    if (out.has_parent_path()) std::filesystem::create_directories(out.parent_path(), ec);
    std::ofstream file(out, std::ios::binary | std::ios::trunc);
    file.write(face->data(), std::streamsize(face->size()));
    file.close();
    if (!file) {
        std::fprintf(stderr, "make_bold_face: cannot write %s\n", argv[3]);
        return 1;
    }
    return 0;
}
