#pragma once
// Runs a test under a locale and restores the previous one at the end.
#include <clocale>
#include <string>

class LocaleScope {
public:
    explicit LocaleScope(const char* name) : ok_(std::setlocale(LC_ALL, name) != nullptr) {}
    ~LocaleScope() { std::setlocale(LC_ALL, previous_.c_str()); }
    bool ok() const { return ok_; }

private:
    std::string previous_ = std::setlocale(LC_ALL, nullptr);
    bool ok_;
};
