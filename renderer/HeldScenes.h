#pragma once
// The models that the renderer holds: each stream received is read with the
// project's reader and merged into the model it names, or added as a new one;
// the model is then written as a scene file into the output folder, named
// after the model.
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "scenereader/SceneDocument.h"

namespace renderer {

class HeldScenes {
public:
    explicit HeldScenes(std::filesystem::path outputFolder) : outputFolder_(std::move(outputFolder)) {}

    // Takes a whole stream. Answers an empty text when the stream was taken,
    // else why it was not; a stream that can't be read changes nothing held.
    std::string receive(std::string_view stream);

    // The held scene as XML: a root with one element per model, named after
    // it, with the counts of its groups and objects. The elements have no
    // children, so that a renderer that holds models still takes a new
    // Render, while an Update finds the model by its name.
    std::string outlineXml() const;

    // The file that a model is written to.
    std::filesystem::path fileOf(const std::string& model) const;

    const std::map<std::string, scenereader::Block>& models() const { return models_; }
    // Told after each model is written: its file and its first camera's name.
    std::function<void(const std::filesystem::path& file, const std::string& firstCamera)> saved;
    // Statements of the model last written that the writer has no call for,
    // and that its file therefore lacks.
    std::size_t statementsLeftOut() const { return statementsLeftOut_; }

private:
    // Writes the model through the scene file writer; answers why it failed,
    // or empty.
    std::string save(const std::string& model, const scenereader::Block& root) const;

    std::filesystem::path outputFolder_;
    std::map<std::string, scenereader::Block> models_;
    mutable std::size_t statementsLeftOut_ = 0;
};

}  // namespace renderer
