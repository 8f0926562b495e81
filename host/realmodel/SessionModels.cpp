#include "host/realmodel/SessionModels.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <string>

#include "host/realmodel/CadInterfaceData.h"
#include "host/realmodel/HostAppearance.h"
#include "host/realmodel/StandardViews.h"
#include "platform/Utf8.h"

namespace host::realmodel {

namespace {

Matrix toHostMatrix(const cad::RowMatrix& matrix) {
    Matrix result{};
    for (size_t i = 0; i < 4; ++i) {
        for (size_t j = 0; j < 4; ++j) result[i][j] = matrix[i][j];
    }
    return result;
}

int largestId(const cad::CadPart& part) {
    int largest = 0;
    for (const cad::CadFace& face : part.faces) largest = std::max(largest, face.id);
    for (const cad::CadEdge& edge : part.edges) largest = std::max(largest, edge.id);
    for (const cad::CadQuilt& quilt : part.quilts) largest = std::max(largest, quilt.id);
    return largest;
}

// A part that a mesh file fills is named after that file: the model's name is
// the bare name, without the file's extension.
std::string bareName(const std::string& name) {
    const std::filesystem::path path(name);
    std::string extension = path.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    constexpr const char* modelExtensions[] = {".stl", ".obj", ".step", ".stp", ".iges", ".igs", ".brep", ".brp"};
    for (const char* known : modelExtensions) {
        if (extension == known) return path.stem().string();
    }
    return name;
}

class Builder {
public:
    Builder(Session& session, std::shared_ptr<const cad::CadModel> model,
            std::shared_ptr<TessellationProgress> progress)
        : session_(session), cad_(std::move(model)), progress_(std::move(progress)) {}

    Model* build(cad::NodeRef node) {
        auto& built = node.kind == cad::NodeKind::part ? parts_ : assemblies_;
        if (auto found = built.find(node.index); found != built.end()) return found->second;
        Model* model = node.kind == cad::NodeKind::part ? buildPart(node.index) : buildAssembly(node.index);
        built[node.index] = model;
        return model;
    }

    size_t surfacesBelow(cad::NodeRef node) const {
        if (node.kind == cad::NodeKind::part) return cad_->parts.at(static_cast<size_t>(node.index)).faces.size();
        size_t count = 0;
        for (const cad::CadComponent& component : cad_->assemblies.at(static_cast<size_t>(node.index)).components) {
            if (!component.blanked) count += surfacesBelow(component.target);
        }
        return count;
    }

private:
    Model baseModel(const std::string& name, int type, cad::NodeRef node) const {
        Model model;
        model.name = platform::utf8ToWide(bareName(name));
        model.type = type;
        model.lengthUnit = platform::utf8ToWide(cad_->unitName);
        const cad::Outline outline = cad::outlineOf(*cad_, node);
        if (!outline.empty()) model.outline = std::array<Point3, 2>{outline.min, outline.max};
        model.currentView = isometricView();
        model.savedViews = standardViews();
        return model;
    }

    Surface surfaceOf(int partIndex, int faceIndex, int featureId) const {
        const cad::CadFace& face = cad_->parts[static_cast<size_t>(partIndex)].faces[static_cast<size_t>(faceIndex)];
        Surface surface;
        surface.id = face.id;
        surface.featureId = featureId;
        surface.geometry = std::make_shared<CadSurface>(cad_, partIndex, faceIndex, progress_);
        surface.contours = contoursOf(face);
        if (face.appearance) {
            surface.appearance = appearancePropsOf(*face.appearance);
            surface.texture = texturePropsOf(*face.appearance);
        }
        return surface;
    }

    Model* buildPart(int index) {
        const cad::CadPart& part = cad_->parts.at(static_cast<size_t>(index));
        Model model = baseModel(part.name, PRO_MDL_PART, {cad::NodeKind::part, index});
        Feature solid;
        solid.id = largestId(part) + 1;
        solid.type = PRO_FEAT_TYPE_SOLID;
        model.features.push_back(solid);
        if (!part.faces.empty()) model.exactGeometry = std::make_shared<CadInterfaceData>(cad_, index);
        if (part.appearance) {
            model.appearance = appearancePropsOf(*part.appearance);
            model.texture = texturePropsOf(*part.appearance);
        }
        std::map<int, size_t> quiltOfId;
        for (const cad::CadQuilt& cadQuilt : part.quilts) {
            quiltOfId[cadQuilt.id] = model.quilts.size();
            Quilt quilt;
            quilt.id = cadQuilt.id;
            quilt.featureId = solid.id;
            model.quilts.push_back(std::move(quilt));
        }
        for (size_t f = 0; f < part.faces.size(); ++f) {
            Surface surface = surfaceOf(index, static_cast<int>(f), solid.id);
            const int quiltId = part.faces[f].quiltId;
            if (quiltId == 0) model.surfaces.push_back(std::move(surface));
            else model.quilts.at(quiltOfId.at(quiltId)).surfaces.push_back(std::move(surface));
        }
        if (!part.facets.empty()) {
            FacetSet set;
            set.facets.reserve(part.facets.size());
            for (const cad::Facet& facet : part.facets) set.facets.push_back({facet.points, facet.normal});
            model.facetSets.push_back(std::move(set));
        }
        for (const std::string& layerName : part.layerNames) {
            addToLayer(model, platform::utf8ToWide(layerName), layerStatusOf(layerName), solid.id);
        }
        return &session_.addModel(std::move(model));
    }

    // A colour or material that the file sets on an occurrence is what the
    // assembly shows on that occurrence's surfaces; its image lies as colour.
    static void showOnOccurrence(Feature& feature, const cad::CadAppearance& appearance) {
        feature.shownAppearance = appearancePropsOf(appearance);
        feature.shownTexture = texturePropsOf(appearance);
        if (feature.shownTexture)
            feature.shownPlacements.push_back(ProTextureplacement{PRO_TEXTURE_TYPE_COLOR, {1, 1}, {0, 0}, 0});
    }

    Model* buildAssembly(int index) {
        const cad::CadAssembly& assembly = cad_->assemblies.at(static_cast<size_t>(index));
        Model model = baseModel(assembly.name, PRO_MDL_ASSEMBLY, {cad::NodeKind::assembly, index});
        for (const cad::CadComponent& component : assembly.components) {
            Feature feature;
            feature.id = component.id;
            feature.type = PRO_FEAT_TYPE_COMPONENT;
            feature.status = PRO_FEAT_ACTIVE;
            feature.component = build(component.target);
            feature.placement = toHostMatrix(component.placement);
            if (component.appearance) showOnOccurrence(feature, *component.appearance);
            model.features.push_back(feature);
            bool onHiddenLayer = false;
            for (const std::string& layerName : component.layerNames) {
                const int status = layerStatusOf(layerName);
                onHiddenLayer = onHiddenLayer || status == PRO_LAYER_BLANK;
                addToLayer(model, platform::utf8ToWide(layerName), status, component.id);
            }
            if (component.blanked && !onHiddenLayer) addToLayer(model, blankedLayerName, PRO_LAYER_BLANK, component.id);
        }
        return &session_.addModel(std::move(model));
    }

    int layerStatusOf(const std::string& name) const {
        for (const cad::CadLayer& layer : cad_->layers) {
            if (layer.name == name) return layer.visible ? PRO_LAYER_NORMAL : PRO_LAYER_BLANK;
        }
        return PRO_LAYER_NORMAL;
    }

    static void addToLayer(Model& model, const std::u16string& name, int status, int featureId) {
        auto layer = std::find_if(model.layers.begin(), model.layers.end(),
                                  [&](const Layer& candidate) { return candidate.name == name; });
        if (layer == model.layers.end()) {
            Layer added;
            added.id = static_cast<int>(model.layers.size()) + 1;
            added.name = name;
            added.displayStatus = status;
            model.layers.push_back(std::move(added));
            layer = model.layers.end() - 1;
        }
        layer->items.push_back({PRO_LAYER_ITEM_FEATURE, featureId});
    }

    Session& session_;
    std::shared_ptr<const cad::CadModel> cad_;
    std::shared_ptr<TessellationProgress> progress_;
    std::map<int, Model*> parts_;
    std::map<int, Model*> assemblies_;
};

std::vector<std::filesystem::path> textureFoldersOf(const cad::CadModel& model) {
    std::vector<std::filesystem::path> folders{std::filesystem::path(model.sourcePath).parent_path()};
    auto add = [&](const std::optional<cad::CadAppearance>& appearance) {
        if (!appearance || appearance->texturePath.empty()) return;
        std::filesystem::path folder = std::filesystem::path(appearance->texturePath).parent_path();
        if (std::find(folders.begin(), folders.end(), folder) == folders.end()) folders.push_back(folder);
    };
    for (const cad::CadPart& part : model.parts) {
        add(part.appearance);
        for (const cad::CadFace& face : part.faces) add(face.appearance);
    }
    return folders;
}

}  // namespace

SessionModels addToSession(Session& session, std::shared_ptr<const cad::CadModel> model,
                           std::shared_ptr<TessellationProgress> progress) {
    Builder builder(session, model, std::move(progress));
    SessionModels result;
    result.top = builder.build(model->top);
    result.surfaceOccurrences = builder.surfacesBelow(model->top);
    result.textureFolders = textureFoldersOf(*model);
    return result;
}

}  // namespace host::realmodel
