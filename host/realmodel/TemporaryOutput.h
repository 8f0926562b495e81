#pragma once
// The scene of a run written under a temporary name in the target's own
// directory, and renamed over the target only when the run went well: a
// failed or interrupted run leaves an earlier file of that name as it was,
// and no temporary file behind.
#include <filesystem>

namespace host::realmodel {

class TemporaryOutput {
public:
    // Creates the empty temporary file, which proves that the target's
    // directory can be written. Throws ExportError, naming the target, if
    // it can't. While the object lives, an interrupt (Ctrl-C) or a
    // termination request removes the temporary file before the program
    // ends as it would have.
    explicit TemporaryOutput(std::filesystem::path target);
    // Removes the temporary file unless it was put in place.
    ~TemporaryOutput();
    TemporaryOutput(const TemporaryOutput&) = delete;
    TemporaryOutput& operator=(const TemporaryOutput&) = delete;

    const std::filesystem::path& path() const { return temporary_; }
    const std::filesystem::path& target() const { return target_; }

    // Renames the temporary file over the target. Throws ExportError.
    void putInPlace();

private:
    std::filesystem::path target_;
    std::filesystem::path temporary_;
    bool placed_ = false;
};

}  // namespace host::realmodel
