// A folder of a test's own under the system's temporary folder, removed with all that is in it.
#pragma once

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#if defined(_WIN32)
#include <process.h>
#else
#include <unistd.h>
#endif

#include "orv/string_utilities.h"

class TempFolder {
  public:
    TempFolder() {
#if defined(_WIN32)
        const long process = _getpid();
#else
        const long process = getpid();
#endif
        static int made = 0;
        // Process ids come again, and an older process may have died before it removed its folder.
        const auto now = std::chrono::system_clock::now().time_since_epoch().count();
        path_ = std::filesystem::temp_directory_path() /
                ("orv_test_" + std::to_string(process) + "_" + std::to_string(now) + "_" + std::to_string(made++));
        std::filesystem::create_directories(path_);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }

    /// The complete path of a file in the folder, as the library takes it. The name is UTF-8.
    CString operator/(const std::string& name) const { return asText(path_) + separator() + asWide(name); }

    void put(const std::string& name, std::string_view bytes) const {
        std::ofstream(pathOf(name), std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    std::string get(const std::string& name) const {
        std::ifstream in(pathOf(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    bool has(const std::string& name) const { return std::filesystem::exists(pathOf(name)); }

    static CString asText(const std::filesystem::path& path) {
        const std::u8string bytes = path.u8string();
        return asWide(std::string(bytes.begin(), bytes.end()));
    }

    /// The same place in the form that the system takes at any length.
    static std::filesystem::path unlimited(const std::filesystem::path& path) {
#if defined(_WIN32)
        return LR"(\\?\)" + path.wstring();
#else
        return path;
#endif
    }

  private:
    static CString asWide(const std::string& utf8) { return orvStdStrUtil::convertUtf8ToUnicode(utf8); }
    static wchar_t separator() { return static_cast<wchar_t>(std::filesystem::path::preferred_separator); }
    std::filesystem::path pathOf(const std::string& name) const {
        return path_ / std::filesystem::path(std::u8string(name.begin(), name.end()));
    }

    std::filesystem::path path_;
};
