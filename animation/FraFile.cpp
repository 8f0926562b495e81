#include <cstdio>
#include <memory>

#include "animation/FraReader.h"
#include "platform/Files.h"

namespace {

struct FileCloser {
    void operator()(FILE* file) const { std::fclose(file); }
};

}  // namespace

// The file is opened in text mode, as the host writes it, and read whole.
bool readFraFile(const std::u16string& path, AnimationFrameTable& frames, std::int32_t& frameCount) {
    std::unique_ptr<FILE, FileCloser> file(platform::openFile(path, u"r"));
    if (!file) return false;
    std::string bytes;
    char chunk[65536];
    for (std::size_t read; (read = std::fread(chunk, 1, sizeof chunk, file.get())) > 0;) bytes.append(chunk, read);
    readFraFile(bytes, frames, frameCount);
    return true;
}
