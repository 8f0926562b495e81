#include "scenereader/SceneAnimations.h"

#include <cmath>

namespace scenereader {

namespace {

struct AnimationReader {
    Animation& animation;
    std::vector<std::string>& problems;

    void report(const std::string& problem) const { problems.push_back(animation.where + ": " + problem); }

    const Value* single(const Statement& statement, ValueKind kind, const char* shape) const {
        if (statement.values.size() == 1 && statement.values.front().kind == kind) return &statement.values.front();
        report("\"" + statement.name + "\" at line " + std::to_string(statement.line) + " is not " + shape);
        return nullptr;
    }

    void readStartTime(const Statement& statement) const {
        const Value* value = single(statement, ValueKind::Number, "an integer");
        if (!value) return;
        if (value->number != std::trunc(value->number) || value->text.find_first_of(".eE") != std::string::npos) {
            report("\"start_time\" " + value->text + " is not an integer");
            return;
        }
        animation.hasStartTime = true;
        animation.startTime = static_cast<int32_t>(value->number);
    }

    void readDuration(const Statement& statement) const {
        const Value* value = single(statement, ValueKind::Number, "a number");
        if (!value) return;
        animation.hasDuration = true;
        animation.duration = value->number;
    }

    void readFolder(const Statement& statement) const {
        if (const Value* value = single(statement, ValueKind::String, "a string")) animation.folder = value->text;
    }

    void readMatrices(const Statement& statement) const {
        const Value* array = single(statement, ValueKind::ElementArray, "an element array");
        if (!array) return;
        for (const Value& element : array->items) {
            std::array<double, 16> matrix{};
            bool whole = element.kind == ValueKind::Tuple && element.items.size() == matrix.size();
            for (size_t i = 0; whole && i < matrix.size(); ++i) {
                whole = element.items[i].kind == ValueKind::Number;
                matrix[i] = element.items[i].number;
            }
            if (!whole) {
                report("\"matrices\" element " + std::to_string(animation.matrices.size()) + " is not 16 numbers");
                return;
            }
            animation.matrices.push_back(matrix);
        }
    }

    void readTimestamps(const Statement& statement) const {
        const Value* array = single(statement, ValueKind::ElementArray, "an element array");
        if (!array) return;
        for (const Value& element : array->items) {
            if (element.kind == ValueKind::Binary && element.binary.kind == 'i') {
                animation.timestamps.insert(animation.timestamps.end(), element.binary.ints.begin(),
                                            element.binary.ints.end());
            } else if (element.kind == ValueKind::Number && element.number == std::trunc(element.number)) {
                animation.timestamps.push_back(static_cast<int32_t>(element.number));
            } else {
                report("\"timestamps\" holds a value that is not an integer");
                return;
            }
        }
    }

    void read(const Block& block) const {
        animation.block = &block;
        animation.type = block.names.size() > 0 ? block.names[0] : "";
        animation.name = block.names.size() > 1 ? block.names[1] : "";
        animation.where = "animation \"" + animation.name + "\" at line " + std::to_string(block.line);
        for (const auto& item : block.items) {
            const auto* statement = std::get_if<Statement>(&item);
            if (!statement || statement->comment) continue;
            const std::string& name = statement->name;
            if (name == "start_time") readStartTime(*statement);
            else if (name == "duration") readDuration(*statement);
            else if (name == "folder") readFolder(*statement);
            else if (name == "matrices") readMatrices(*statement);
            else if (name == "timestamps") readTimestamps(*statement);
        }
    }
};

// Single precision, as the plug-in works out its time base.
int32_t stampOf(long long frame) {
    const float millisecondsPerFrame = (1.0f / static_cast<float>(animationFramesPerSecond)) * 1000.0f;
    return static_cast<int32_t>(static_cast<float>(frame) * millisecondsPerFrame);
}

void checkLengths(const Animation& animation, std::vector<std::string>& problems) {
    auto report = [&](const std::string& problem) { problems.push_back(animation.where + ": " + problem); };
    if (!animation.hasStartTime) report("\"start_time\" is missing");
    if (!animation.hasDuration) {
        report("\"duration\" is missing");
        return;
    }
    const long long frames = animation.impliedFrames();
    const std::string implied = " for the " + std::to_string(frames) + " frames of a duration of " +
                                std::to_string(animation.duration) + " s";
    if (static_cast<long long>(animation.matrices.size()) != frames)
        report("\"matrices\" holds " + std::to_string(animation.matrices.size()) + " matrices" + implied);
    if (static_cast<long long>(animation.timestamps.size()) != frames)
        report("\"timestamps\" holds " + std::to_string(animation.timestamps.size()) + " stamps" + implied);
    for (size_t i = 0; i < animation.timestamps.size(); ++i) {
        if (animation.timestamps[i] == stampOf(static_cast<long long>(i))) continue;
        report("time stamp " + std::to_string(i) + " is " + std::to_string(animation.timestamps[i]) + ", not " +
               std::to_string(stampOf(static_cast<long long>(i))));
        return;
    }
}

}  // namespace

long long Animation::impliedFrames() const {
    if (!std::isfinite(duration) || std::fabs(duration) > 1e12) return -1;
    return std::llround(duration * animationFramesPerSecond);
}

std::vector<Animation> readAnimations(const Block& block, std::vector<std::string>& problems) {
    std::vector<Animation> animations;
    for (const Block* found : block.descendants("animation")) {
        Animation animation;
        AnimationReader{animation, problems}.read(*found);
        animations.push_back(std::move(animation));
    }
    return animations;
}

std::vector<std::string> checkAnimations(const Document& document) {
    std::vector<std::string> problems;
    for (const Animation& animation : readAnimations(document.root, problems)) checkLengths(animation, problems);
    return problems;
}

}  // namespace scenereader
