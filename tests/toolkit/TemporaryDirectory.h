#pragma once
// A fresh directory for one test, removed with its contents at the end; and a
// scope that makes a directory the working directory for its lifetime.
#include <filesystem>
#include <random>
#include <string>

class TemporaryDirectory {
public:
    explicit TemporaryDirectory(const std::string& prefix)
        : path_(std::filesystem::temp_directory_path() / (prefix + "_" + std::to_string(std::random_device()()))) {
        std::filesystem::create_directories(path_);
    }
    ~TemporaryDirectory() { std::filesystem::remove_all(path_); }
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

class WorkingDirectoryScope {
public:
    explicit WorkingDirectoryScope(const std::filesystem::path& directory) { std::filesystem::current_path(directory); }
    ~WorkingDirectoryScope() { std::filesystem::current_path(previous_); }

private:
    std::filesystem::path previous_ = std::filesystem::current_path();
};
