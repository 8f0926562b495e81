#pragma once
// What went wrong while the plug-in ran, kept for tests and the command line:
// the plug-in itself hears only a status and usually ignores it.
#include <string>
#include <utility>
#include <vector>

namespace host {

class ErrorLog {
public:
    void add(std::string message) { messages_.push_back(std::move(message)); }
    const std::vector<std::string>& messages() const { return messages_; }
    bool empty() const { return messages_.empty(); }
    void clear() { messages_.clear(); }

private:
    std::vector<std::string> messages_;
};

}  // namespace host
