// The process in a locale whose decimal sign is a comma, until the end of the scope.
#pragma once

#include <clocale>
#include <cstdlib>
#include <string>

class CommaLocale {
  public:
    CommaLocale() : before_(std::setlocale(LC_ALL, nullptr)) {
#if defined(_WIN32)
        std::setlocale(LC_ALL, "German");
#else
        setenv("LOCPATH", ORV_TEST_LOCALES, 1);  // made by the build
        std::setlocale(LC_ALL, "de_DE.UTF-8");
#endif
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;
    ~CommaLocale() {
        std::setlocale(LC_ALL, before_.c_str());
#if !defined(_WIN32)
        unsetenv("LOCPATH");
#endif
    }

  private:
    std::string before_;
};
