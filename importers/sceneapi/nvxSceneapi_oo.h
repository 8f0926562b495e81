#pragma once
// The object scene layer that export code holds: it opens a scene from a
// factory, announces the library and the format version, and offers the
// attribute setters of the scene contract in typed form. Nodes are added to
// it and write themselves.
#include <array>
#include <string>
#include <vector>

#include "importers/sceneapi/nvxScene_api.h"

namespace nvx {

class LightFactory;
class LightNode;

using Float3 = std::array<float, 3>;
// Sixteen doubles, row after row.
using Matrix = std::array<double, 16>;
// The array setters count elements; the elements lie packed as the scene
// contract expects them.
static_assert(sizeof(Float3) == 3 * sizeof(float));
static_assert(sizeof(Matrix) == 128);

class nvxSceneapi_oo {
public:
    static constexpr int LIBRARY_MAJOR = 7;
    static constexpr int LIBRARY_MINOR = 0;
    static constexpr int LIBRARY_BUILD = 219;
    static constexpr const char* BUILD_STAMP = "Mon Feb 27 10:39:17 2017";
    static constexpr unsigned FORMAT_VERSION = 7;

    // Asks the factory for its scene; when there is one, lets the factory
    // begin it and sends the banner and the format version. A failed
    // connection leaves scene() null and throws nothing.
    explicit nvxSceneapi_oo(LightFactory& factory);
    nvxSceneapi_oo(const nvxSceneapi_oo&) = delete;
    nvxSceneapi_oo& operator=(const nvxSceneapi_oo&) = delete;
    // Leaves the factory and its scene alone: the factory closes the scene.
    virtual ~nvxSceneapi_oo();

    // Rebinds the layer and restarts both counters.
    virtual int set_scene(nvxScene_api* scene);
    virtual int next_id();
    virtual void add(LightNode& node);
    virtual void progress(const std::string& text, float fraction);
    virtual void begin_group(const std::string& name);
    virtual void end_group();
    virtual int define_shader(const std::string& type);
    virtual void end_shader();
    // Refused: a character pointer would otherwise turn silently into the
    // bool setter. Throws std::invalid_argument.
    virtual void set_attribute(const std::string& name, const char* value);
    virtual void set_attribute(const std::string& name, const std::string& value);
    virtual void set_attribute(const std::string& name, const float* three_floats);
    virtual void set_attribute(const std::string& name, const double* three_doubles);
    virtual void set_attribute(const std::string& name, double value);
    virtual void set_attribute(const std::string& name, float value);
    virtual void set_attribute(const std::string& name, int value);
    virtual void set_attribute(const std::string& name, bool value);
    virtual void set_attribute(const std::string& name, const std::vector<Matrix>& matrices);
    virtual void set_attribute(const std::string& name, const std::vector<int>& values);
    virtual void set_attribute(const std::string& name, const std::vector<float>& values);
    virtual void set_attribute(const std::string& name, const std::vector<double>& values);
    virtual void set_attribute(const std::string& name, const std::vector<Float3>& triples);
    virtual void apply_transform(const double m[16]);
    // An absolute transform replaces the current one instead of multiplying it.
    virtual void apply_transform(const double m[16], bool absolute);
    virtual void set_flags(unsigned flags);
    virtual nvxScene_api* scene();

private:
    void set_array(const std::string& name, int type, const void* data, std::size_t count);

    nvxScene_api* scene_api = nullptr;
    LightFactory* factory;
    int shader_id = 0;
    int object_id = 0;
};

}  // namespace nvx
