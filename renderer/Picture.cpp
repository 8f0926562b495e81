#include "renderer/Picture.h"

#include <spawn.h>

#include <cstdlib>
#include <system_error>
#include <vector>

extern char** environ;

namespace renderer {

bool drawPictureAside(const std::filesystem::path& scene, const std::string& camera) {
    const char* display = std::getenv("DISPLAY");
    std::error_code error;
    const std::filesystem::path tools = std::filesystem::read_symlink("/proc/self/exe", error).parent_path() / "vantrel-scene";
    if (!display || !*display || error || !std::filesystem::is_regular_file(tools)) return false;
    std::vector<std::string> words{tools.string(), "preview", scene.string(), "-o", scene.string() + ".png"};
    if (!camera.empty()) words.insert(words.end(), {"--camera", camera});
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    pid_t process = 0;
    return posix_spawn(&process, arguments.front(), nullptr, nullptr, arguments.data(), environ) == 0;
}

}  // namespace renderer
