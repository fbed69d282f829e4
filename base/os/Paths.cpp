#include "os/Paths.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <pwd.h>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::string environment(char const* name) {
    char const* value = std::getenv(name);
    return value != nullptr ? std::string(value) : std::string();
}

// An XDG variable counts only when it holds an absolute path.
std::string xdgDirectory(char const* variable, char const* fallbackBelowHome) {
    std::string dir = environment(variable);
    if (dir.empty() || dir[0] != '/')
        dir = Paths::homeDirectory() + "/" + fallbackBelowHome;
    return dir + "/panelkit";
}

bool isDirectory(std::string const& path) {
    struct stat info;
    return ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

bool writeAll(int fd, std::string const& contents) {
    std::size_t done = 0;
    while (done < contents.size()) {
        ssize_t n = ::write(fd, contents.data() + done, contents.size() - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        done += std::size_t(n);
    }
    return true;
}

} // namespace

namespace Paths {

std::string configDirectory() {
    return xdgDirectory("XDG_CONFIG_HOME", ".config");
}

std::string stateDirectory() {
    return xdgDirectory("XDG_STATE_HOME", ".local/state");
}

std::string homeDirectory() {
    std::string home = environment("HOME");
    if (!home.empty())
        return home;
    if (struct passwd* pw = ::getpwuid(::getuid()); pw != nullptr && pw->pw_dir != nullptr)
        return pw->pw_dir;
    return "/";
}

std::string parentOf(std::string const& path) {
    auto slash = path.find_last_of('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

bool makeDirectories(std::string const& path) {
    if (path.empty() || isDirectory(path))
        return !path.empty();
    std::string parent = parentOf(path);
    if (parent != path && !makeDirectories(parent))
        return false;
    // Another process may make it at the same moment; what counts is that a folder is there.
    return ::mkdir(path.c_str(), 0700) == 0 || (errno == EEXIST && isDirectory(path));
}

bool writeFileAtomically(std::string const& path, std::string const& contents) {
    if (!makeDirectories(parentOf(path)))
        return false;
    // A unique temporary name, so that two writers of the same file never share one.
    std::string temporary = path + ".XXXXXX";
    int fd = ::mkostemp(temporary.data(), O_CLOEXEC);
    if (fd < 0)
        return false;
    bool ok = writeAll(fd, contents) && ::fsync(fd) == 0;
    ok = (::close(fd) == 0) && ok;
    if (ok && ::rename(temporary.c_str(), path.c_str()) == 0)
        return true;
    ::unlink(temporary.c_str());
    return false;
}

bool readFile(std::string const& path, std::string& contents) {
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return false;
    std::ostringstream buffer;
    buffer << in.rdbuf();
    contents = buffer.str();
    return !in.bad();
}

} // namespace Paths
