#pragma once
// A loaded dynamic library, unloaded when the object goes.
#include <string>

namespace platform {

class DynamicLibrary {
public:
    DynamicLibrary() = default;
    DynamicLibrary(DynamicLibrary&& other) noexcept;
    DynamicLibrary& operator=(DynamicLibrary&& other) noexcept;
    DynamicLibrary(const DynamicLibrary&) = delete;
    DynamicLibrary& operator=(const DynamicLibrary&) = delete;
    ~DynamicLibrary();

    // Loads the library; on failure the result is not open and `error` holds
    // the system's reason.
    static DynamicLibrary open(const std::u16string& path, std::string& error);

    bool isOpen() const { return handle_ != nullptr; }
    // The system's handle, for messages; null if not open.
    const void* handle() const { return handle_; }
    // The address of an exported symbol, or null.
    void* symbol(const char* name) const;
    void close();

private:
    explicit DynamicLibrary(void* handle) : handle_(handle) {}
    void* handle_ = nullptr;
};

}  // namespace platform
