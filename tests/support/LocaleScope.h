#pragma once
// Runs a test's body under a locale and restores the previous one.
#include <clocale>
#include <string>

namespace testsupport {

class LocaleScope {
public:
    explicit LocaleScope(const char* name) : previous_(std::setlocale(LC_ALL, nullptr)) {
        ok_ = std::setlocale(LC_ALL, name) != nullptr;
    }
    ~LocaleScope() { std::setlocale(LC_ALL, previous_.c_str()); }
    LocaleScope(const LocaleScope&) = delete;
    LocaleScope& operator=(const LocaleScope&) = delete;
    bool ok() const { return ok_; }

private:
    std::string previous_;
    bool ok_ = false;
};

}  // namespace testsupport
