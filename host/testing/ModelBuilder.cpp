#include "host/testing/ModelBuilder.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

#include "host/geometry/TestSurface.h"

namespace host::fixtures {
namespace {

template <size_t capacity>
void copyText(ProWchar (&to)[capacity], std::u16string_view text) {
    size_t length = std::min(text.size(), capacity - 1);
    std::copy_n(text.begin(), length, to);
    to[length] = u'\0';
}

template <size_t capacity>
void copyText(char (&to)[capacity], std::string_view text) {
    size_t length = std::min(text.size(), capacity - 1);
    std::copy_n(text.begin(), length, to);
    to[length] = '\0';
}

int nextSurfaceId(const Model& model) {
    int highest = firstSurfaceId - 1;
    for (const Surface& surface : model.surfaces) highest = std::max(highest, surface.id);
    for (const Quilt& quilt : model.quilts) {
        for (const Surface& surface : quilt.surfaces) highest = std::max(highest, surface.id);
    }
    return highest + 1;
}

int nextFeatureId(const Model& model) {
    int highest = 0;
    for (const Feature& feature : model.features) highest = std::max(highest, feature.id);
    return highest + 1;
}

Surface unitSquare(int id, Point3 corner, int featureId) {
    Surface surface;
    surface.id = id;
    surface.featureId = featureId;
    surface.geometry = std::make_shared<TestSurface>(TestSurface::unitSquare(corner));
    return surface;
}

// A rotation by `degrees` that turns axis `from` towards axis `to`.
Matrix rotation(double degrees, size_t from, size_t to) {
    double angle = degrees * std::numbers::pi / 180.0;
    Matrix m = identityMatrix();
    m[from][from] = std::cos(angle);
    m[from][to] = std::sin(angle);
    m[to][from] = -std::sin(angle);
    m[to][to] = std::cos(angle);
    return m;
}

}  // namespace

AppearanceProps appearance(std::u16string_view name, Point3 colour, double diffuse,
                           std::optional<std::u16string_view> label) {
    AppearanceProps props{};
    props.ambient = 0.1;
    props.diffuse = diffuse;
    for (size_t channel = 0; channel < 3; ++channel) props.color[channel] = colour[channel];
    copyText(props.name, name);
    copyText(props.label, label.value_or(name));
    return props;
}

TextureProps texture(std::string_view colour, std::string_view decal, std::string_view bump) {
    TextureProps props{};
    copyText(props.decal, decal);
    copyText(props.color, colour);
    copyText(props.bump, bump);
    return props;
}

Model part(std::u16string name, int squares) {
    Model model;
    model.name = std::move(name);
    model.type = PRO_MDL_PART;
    model.features.push_back(Feature{.id = bodyFeatureId, .type = PRO_FEAT_TYPE_SOLID});
    for (int index = 0; index < squares; ++index) addSquare(model, {double(index), 0.0, 0.0});
    return model;
}

Model assembly(std::u16string name) {
    Model model;
    model.name = std::move(name);
    model.type = PRO_MDL_ASSEMBLY;
    return model;
}

Surface& addSquare(Model& model, Point3 corner, int featureId) {
    return model.surfaces.emplace_back(unitSquare(nextSurfaceId(model), corner, featureId));
}

Quilt& addQuilt(Model& model, int squares) {
    Feature& owner = model.features.emplace_back(Feature{.id = nextFeatureId(model), .type = PRO_FEAT_TYPE_SOLID});
    Quilt quilt;
    quilt.id = static_cast<int>(model.quilts.size()) + 1;
    quilt.featureId = owner.id;
    for (int index = 0; index < squares; ++index) {
        int id = std::max(nextSurfaceId(model), quilt.surfaces.empty() ? 0 : quilt.surfaces.back().id + 1);
        quilt.surfaces.push_back(unitSquare(id, {double(index), 2.0, 0.0}, owner.id));
    }
    return model.quilts.emplace_back(std::move(quilt));
}

FacetSet& addFacetSet(Model& model, int facets) {
    FacetSet& set = model.facetSets.emplace_back();
    for (int index = 0; index < facets; ++index) {
        double x = index;
        set.facets.push_back(Facet{{{{x, 0.0, 0.0}, {x + 1.0, 0.0, 0.0}, {x, 1.0, 0.0}}}, {0.0, 0.0, 1.0}});
    }
    return set;
}

View& addView(Model& model, std::u16string name, const Matrix& matrix) {
    return model.savedViews.emplace_back(View{std::move(name), matrix});
}

Representation& addRepresentation(Model& model, int id, std::u16string name, int defaultAction) {
    Representation& representation = model.representations.emplace_back();
    representation.id = id;
    representation.name = std::move(name);
    representation.defaultAction = defaultAction;
    return representation;
}

ProSimprepitem representationItem(const std::vector<int>& path, int actionType) {
    ProSimprepitem item{};
    size_t count = std::min(path.size(), size_t(PRO_MAX_ASSEM_LEVEL));
    std::copy_n(path.begin(), count, item.componentIds);
    item.componentIdCount = static_cast<int>(count);
    item.action.type = actionType;
    return item;
}

Feature& addComponent(Model& assembly, Model* component, int featureId, const Matrix& placement) {
    return assembly.features.emplace_back(
        Feature{.id = featureId, .type = PRO_FEAT_TYPE_COMPONENT, .component = component, .placement = placement});
}

Layer& addLayer(Model& model, int id, std::u16string name, int displayStatus, std::vector<LayerItemRef> items) {
    return model.layers.emplace_back(Layer{id, std::move(name), displayStatus, std::move(items)});
}

Matrix translation(double x, double y, double z) {
    Matrix m = identityMatrix();
    m[3] = {x, y, z, 1.0};
    return m;
}

Matrix rotationX(double degrees) { return rotation(degrees, 1, 2); }
Matrix rotationY(double degrees) { return rotation(degrees, 2, 0); }
Matrix rotationZ(double degrees) { return rotation(degrees, 0, 1); }

}  // namespace host::fixtures
