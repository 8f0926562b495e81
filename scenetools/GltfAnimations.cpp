#include "scenetools/GltfAnimations.h"

#include <cmath>
#include <cstring>
#include <gp_Mat.hxx>
#include <gp_Quaternion.hxx>
#include <utility>

#include "scenetools/GltfJson.h"
#include "scenetools/UpAxis.h"

namespace scenetools {

namespace {

constexpr int floatType = 5126;

// The glTF node of each group, found by walking the written tree beside the
// scene's: a group's node holds a node for each drawable mesh, then one for
// each child group, in order. A top-level group with a transform hangs
// below a holder node of its own name.
class NodeMatcher {
public:
    explicit NodeMatcher(const rapidjson::Value& nodes) : nodes_(nodes) {}

    bool matchTop(const rapidjson::Value& roots, const Scene& scene) {
        if (roots.Size() < scene.root.children.size()) return false;
        for (rapidjson::SizeType i = 0; i < scene.root.children.size(); ++i) {
            const Node& group = scene.root.children[i];
            unsigned index = roots[i].GetUint();
            if (!(group.transform == identityMatrix)) {
                const rapidjson::Value* children = childrenOf(index);
                if (!children || children->Size() != 1) return false;
                index = (*children)[0].GetUint();
            }
            if (!match(group, index)) return false;
        }
        return true;
    }

    // Depth first, in file order.
    const std::vector<std::pair<const Node*, unsigned>>& found() const { return found_; }

private:
    const rapidjson::Value* childrenOf(unsigned index) const {
        if (index >= nodes_.Size() || !nodes_[index].HasMember("children")) return nullptr;
        return &nodes_[index]["children"];
    }

    bool match(const Node& group, unsigned index) {
        if (index >= nodes_.Size() || !nodes_[index].HasMember("name") ||
            group.name != nodes_[index]["name"].GetString()) {
            return false;
        }
        found_.emplace_back(&group, index);
        size_t meshes = 0;
        for (const Mesh& mesh : group.meshes) meshes += mesh.drawable();
        if (meshes + group.children.size() == 0) return true;
        const rapidjson::Value* children = childrenOf(index);
        if (!children || children->Size() != meshes + group.children.size()) return false;
        for (size_t i = 0; i < group.children.size(); ++i) {
            if (!match(group.children[i], (*children)[static_cast<rapidjson::SizeType>(meshes + i)].GetUint())) {
                return false;
            }
        }
        return true;
    }

    const rapidjson::Value& nodes_;
    std::vector<std::pair<const Node*, unsigned>> found_;
};

// The samples of one track as float arrays, with their place in the buffer.
class SampleWriter {
public:
    SampleWriter(rapidjson::Document& document, std::string& bin, unsigned bufferView)
        : document_(document), bin_(bin), bufferView_(bufferView) {}

    // Appends the floats and an accessor for them; answers its index.
    unsigned accessor(const std::vector<float>& values, const char* type, size_t width, bool bounds) {
        auto& allocator = document_.GetAllocator();
        rapidjson::Value accessor(rapidjson::kObjectType);
        accessor.AddMember("bufferView", bufferView_, allocator);
        accessor.AddMember("byteOffset", static_cast<unsigned>(written_), allocator);
        accessor.AddMember("componentType", floatType, allocator);
        accessor.AddMember("count", static_cast<unsigned>(values.size() / width), allocator);
        accessor.AddMember("type", rapidjson::StringRef(type), allocator);
        if (bounds) {
            accessor.AddMember("min", numberArray({values.front()}, allocator), allocator);
            accessor.AddMember("max", numberArray({values.back()}, allocator), allocator);
        }
        const size_t bytes = values.size() * sizeof(float);
        bin_.resize(bin_.size() + bytes);
        std::memcpy(bin_.data() + bin_.size() - bytes, values.data(), bytes);
        written_ += bytes;
        rapidjson::Value& accessors = document_["accessors"];
        accessors.PushBack(accessor, allocator);
        return accessors.Size() - 1;
    }

    size_t written() const { return written_; }

private:
    rapidjson::Document& document_;
    std::string& bin_;
    unsigned bufferView_;
    size_t written_ = 0;
};

// The group's local transform at each frame, in metres with +Y up.
std::vector<Placement> placements(const Track& track, const Node& group, const Scene& scene) {
    const Matrix toViewer = sceneToViewer(scene);
    Matrix fromViewer = upRotation(scene.upAxis);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            fromViewer[row * 4 + column] = upRotation(scene.upAxis)[column * 4 + row] * scene.meterScale;
        }
    }
    std::vector<Placement> result;
    for (const Matrix& frame : track.matrices) {
        result.push_back(decompose(multiply(multiply(fromViewer, multiply(frame, group.transform)), toViewer)));
        if (result.size() > 1) {
            // The shorter way round from the frame before.
            const auto& before = result[result.size() - 2].rotation;
            auto& rotation = result.back().rotation;
            double dot = 0;
            for (int i = 0; i < 4; ++i) dot += before[i] * rotation[i];
            if (dot < 0) {
                for (double& part : rotation) part = -part;
            }
        }
    }
    return result;
}

rapidjson::Value channel(unsigned sampler, unsigned node, const char* path, JsonAllocator& allocator) {
    rapidjson::Value target(rapidjson::kObjectType);
    target.AddMember("node", node, allocator);
    target.AddMember("path", rapidjson::StringRef(path), allocator);
    rapidjson::Value result(rapidjson::kObjectType);
    result.AddMember("sampler", sampler, allocator);
    result.AddMember("target", target, allocator);
    return result;
}

void addTrack(const Track& track, const Node& group, unsigned node, const Scene& scene, SampleWriter& samples,
              rapidjson::Document& document) {
    auto& allocator = document.GetAllocator();
    const std::vector<Placement> frames = placements(track, group, scene);
    const size_t count = std::min(frames.size(), track.timestamps.size());
    std::vector<float> times, translations, rotations, scales;
    for (size_t i = 0; i < count; ++i) {
        times.push_back(static_cast<float>(track.timestamps[i] / 1000.0));
        for (double value : frames[i].translation) translations.push_back(static_cast<float>(value));
        for (double value : frames[i].rotation) rotations.push_back(static_cast<float>(value));
        for (double value : frames[i].scale) scales.push_back(static_cast<float>(value));
    }
    const unsigned input = samples.accessor(times, "SCALAR", 1, true);
    const std::pair<const char*, unsigned> outputs[] = {
        {"translation", samples.accessor(translations, "VEC3", 3, false)},
        {"rotation", samples.accessor(rotations, "VEC4", 4, false)},
        {"scale", samples.accessor(scales, "VEC3", 3, false)},
    };
    rapidjson::Value samplers(rapidjson::kArrayType), channels(rapidjson::kArrayType);
    for (const auto& [path, output] : outputs) {
        rapidjson::Value sampler(rapidjson::kObjectType);
        sampler.AddMember("input", input, allocator);
        sampler.AddMember("interpolation", "LINEAR", allocator);
        sampler.AddMember("output", output, allocator);
        channels.PushBack(channel(samplers.Size(), node, path, allocator), allocator);
        samplers.PushBack(sampler, allocator);
    }
    rapidjson::Value animation(rapidjson::kObjectType);
    animation.AddMember("name", rapidjson::Value(track.name.c_str(), allocator), allocator);
    animation.AddMember("channels", channels, allocator);
    animation.AddMember("samplers", samplers, allocator);
    document["animations"].PushBack(animation, allocator);
}

bool increasing(const std::vector<int32_t>& stamps, size_t count) {
    for (size_t i = 1; i < count; ++i) {
        if (stamps[i] <= stamps[i - 1]) return false;
    }
    return count > 0;
}

}  // namespace

Placement decompose(const Matrix& m) {
    Placement placement;
    placement.translation = {m[12], m[13], m[14]};
    std::array<gp_XYZ, 3> rows;
    for (int row = 0; row < 3; ++row) rows[row] = gp_XYZ(m[row * 4], m[row * 4 + 1], m[row * 4 + 2]);
    for (int row = 0; row < 3; ++row) placement.scale[row] = rows[row].Modulus();
    if (rows[0].Dot(rows[1].Crossed(rows[2])) < 0) placement.scale[0] = -placement.scale[0];
    for (int row = 0; row < 3; ++row) {
        if (placement.scale[row] != 0) rows[row] /= placement.scale[row];
    }
    // Column-vector form: the turned axes are the columns.
    const gp_Quaternion rotation(gp_Mat(rows[0], rows[1], rows[2]));
    placement.rotation = {rotation.X(), rotation.Y(), rotation.Z(), rotation.W()};
    return placement;
}

size_t addAnimations(rapidjson::Document& document, std::string& bin, const Scene& scene) {
    if (scene.animations == 0 || !document.HasMember("nodes") || !document.HasMember("scenes")) return 0;
    const unsigned sceneIndex = document.HasMember("scene") ? document["scene"].GetUint() : 0;
    NodeMatcher matcher(document["nodes"]);
    if (!matcher.matchTop(document["scenes"][sceneIndex]["nodes"], scene)) return 0;

    struct Animated {
        const Track* track;
        const Node* group;
        unsigned node;
    };
    std::vector<Animated> animated;
    for (const auto& [group, node] : matcher.found()) {
        for (const Track& track : group->tracks) {
            if (increasing(track.timestamps, std::min(track.matrices.size(), track.timestamps.size()))) {
                animated.push_back({&track, group, node});
            }
        }
    }
    if (animated.empty()) return 0;

    // Members first: adding one to the document moves the others.
    auto& allocator = document.GetAllocator();
    for (const char* name : {"buffers", "bufferViews", "accessors", "animations"}) {
        member(document, name, rapidjson::kArrayType, allocator);
    }
    if (document["buffers"].Empty()) document["buffers"].PushBack(rapidjson::Value(rapidjson::kObjectType), allocator);
    bin.resize((bin.size() + 3) / 4 * 4, '\0');
    const size_t start = bin.size();
    SampleWriter samples(document, bin, document["bufferViews"].Size());
    for (const Animated& item : animated) addTrack(*item.track, *item.group, item.node, scene, samples, document);
    rapidjson::Value view(rapidjson::kObjectType);
    view.AddMember("buffer", 0, allocator);
    view.AddMember("byteOffset", static_cast<unsigned>(start), allocator);
    view.AddMember("byteLength", static_cast<unsigned>(samples.written()), allocator);
    document["bufferViews"].PushBack(view, allocator);
    rapidjson::Value& buffer = document["buffers"][0];
    if (buffer.HasMember("byteLength")) buffer.RemoveMember("byteLength");
    buffer.AddMember("byteLength", static_cast<unsigned>(bin.size()), allocator);
    return animated.size();
}

}  // namespace scenetools
