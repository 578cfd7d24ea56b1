#include "text/file_io.h"

#include <cerrno>
#include <filesystem>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

#include "text/game_paths.h"

namespace fendle {

std::string gamePath(std::string_view gameName, std::string_view folder) {
    if (folder.empty()) {
        const GameFolders& f = gameFolders();
        folder = isUserFile(gameName) ? f.user : f.data;
    }
    std::string path;
    if (!folder.empty()) {
        path = folder;
        if (path.back() != '/') path += '/';
    }
    for (const char ch : gameName) path += ch == '\\' ? '/' : ch;
    return path;
}

std::optional<std::string> readFileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return std::nullopt;
    std::ostringstream content;
    content << in.rdbuf();
    if (in.bad()) return std::nullopt;
    return std::move(content).str();
}

namespace {

bool fail(std::string* error, const std::string& what) {
    if (error) *error = what + ": " + std::strerror(errno);
    return false;
}

// The user folder comes into being with the first file written into it, with
// its parents, readable by its owner only.
void makeUserFolderFor(const std::string& path) {
    namespace fs = std::filesystem;
    const std::string& user = gameFolders().user;
    if (user.empty()) return;
    const fs::path folder = fs::path(path).parent_path().lexically_normal();
    if (folder != fs::path(user).lexically_normal()) return;
    std::error_code ec;
    if (fs::exists(folder, ec)) return;
    const int errnoBefore = errno;
    for (fs::path step; const fs::path& part : folder) {
        step /= part;
        if (::mkdir(step.c_str(), 0700) != 0 && errno != EEXIST) break;
    }
    errno = errnoBefore;
}

}  // namespace

bool writeFileAtomic(const std::string& path, std::string_view bytes, std::string* error) {
    // A name beside the target that no other writer uses. O_EXCL refuses a
    // leftover of the same name; the mode lets the umask decide, as for any
    // new file.
    static unsigned serial = 0;
    makeUserFolderFor(path);
    std::string temp;
    int fd = -1;
    for (int attempt = 0; attempt < 100 && fd < 0; ++attempt) {
        temp = path + ".tmp" + std::to_string(::getpid()) + "-" + std::to_string(++serial);
        fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd < 0 && errno != EEXIST) return fail(error, "cannot create " + temp);
    }
    if (fd < 0) return fail(error, "cannot create a temporary file beside " + path);

    const char* data = bytes.data();
    std::size_t left = bytes.size();
    while (left > 0) {
        const ssize_t n = ::write(fd, data, left);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) {
            const bool ok = fail(error, "cannot write " + temp);
            ::close(fd);
            ::unlink(temp.c_str());
            return ok;
        }
        data += n;
        left -= static_cast<std::size_t>(n);
    }
    if (::fsync(fd) != 0) {
        fail(error, "cannot flush " + temp);
        ::close(fd);
        ::unlink(temp.c_str());
        return false;
    }
    if (::close(fd) != 0) {
        fail(error, "cannot close " + temp);
        ::unlink(temp.c_str());
        return false;
    }
    if (std::rename(temp.c_str(), path.c_str()) != 0) {
        fail(error, "cannot replace " + path);
        ::unlink(temp.c_str());
        return false;
    }
    return true;
}

std::optional<std::string> readFileTail(const std::string& path, std::size_t count) {
    std::ifstream in(path, std::ios::binary | std::ios::ate);
    if (!in) return std::nullopt;
    const std::streamoff size = in.tellg();
    const std::streamoff from = size > std::streamoff(count) ? size - std::streamoff(count) : 0;
    in.seekg(from);
    std::string tail(static_cast<std::size_t>(size - from), '\0');
    if (!in.read(tail.data(), std::streamsize(tail.size()))) return std::nullopt;
    return tail;
}

namespace {

// Writes all of `bytes`, as many calls as the system needs.
bool writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t n = ::write(fd, bytes.data(), bytes.size());
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

}  // namespace

std::size_t appendLines(const std::string& path, std::string_view head, std::span<const std::string> lines,
                        std::string* error) {
    makeUserFolderFor(path);
    const int fd = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666);
    if (fd < 0) {
        fail(error, "cannot open " + path);
        return 0;
    }
    struct stat st {};
    bool ok = ::fstat(fd, &st) == 0;
    if (ok && st.st_size == 0) {
        ok = writeAll(fd, head);
    } else if (ok) {
        char last = '\n';
        const int reader = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        if (reader >= 0) {
            if (::pread(reader, &last, 1, st.st_size - 1) != 1) last = '\n';
            ::close(reader);
        }
        if (last != '\n') ok = writeAll(fd, "\r\n");
    }
    std::size_t written = 0;
    while (ok && written < lines.size()) {
        ok = writeAll(fd, lines[written]);
        if (ok) ++written;
    }
    // Lines the system has taken are in the file, flushed or not: they are
    // counted, so that nobody writes them twice.
    if ((ok && ::fsync(fd) != 0) || !ok) fail(error, "cannot add to " + path);
    ::close(fd);
    return written;
}

}  // namespace fendle
