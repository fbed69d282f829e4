#pragma once

// A fresh folder under the system's temporary folder, removed with everything in it when the
// object goes.

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

class TemporaryDirectory {
public:
    TemporaryDirectory() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "panelkit-test-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("cannot make a temporary folder");
        path_ = pattern;
    }
    ~TemporaryDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryDirectory(TemporaryDirectory const&) = delete;
    TemporaryDirectory& operator=(TemporaryDirectory const&) = delete;

    std::filesystem::path const& path() const { return path_; }
    // A path inside the folder.
    std::string file(std::string const& name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};
