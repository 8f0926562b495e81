#pragma once
// Factories decide the road of a scene: LightFileFactory writes a ".vnz"
// file, RepeatLinkFactory (RepeatLinkFactory.h) talks to a running renderer.
#include <cstdio>
#include <string>

#include "importers/sceneapi/nvxScene_api.h"

class nvxScene_api_file;

namespace nvx {

class nvxSceneapi_oo;

class LightFactory {
public:
    virtual ~LightFactory() = default;
    // The scene object, connecting first where that applies; null on failure.
    virtual nvxScene_api* scene() = 0;
    // Called once by the object layer when a scene exists.
    virtual void begin(nvxSceneapi_oo& layer) = 0;
    // Ends the scene and releases what it holds.
    virtual void close() = 0;
};

class LightFileFactory : public LightFactory {
public:
    // Opens the file at the UTF-8 path for writing, or takes standard output
    // for "-" (stray prints then go to standard error). Throws
    // std::runtime_error naming the path when the file can't be opened.
    explicit LightFileFactory(std::string path);
    LightFileFactory(const LightFileFactory&) = delete;
    LightFileFactory& operator=(const LightFileFactory&) = delete;
    // Closes the scene if no one did; a failure to close is not raised here.
    ~LightFileFactory() override;

    nvxScene_api* scene() override;
    // Writes the four header lines of a scene file.
    void begin(nvxSceneapi_oo& layer) override;
    // Destroys the writer and closes the file; a second call does nothing.
    // Throws std::runtime_error when the file can't be closed (a full disk).
    void close() override;

private:
    nvxScene_api_file* file_scene = nullptr;
    FILE* file = nullptr;
};

}  // namespace nvx
