#pragma once
// A model open in the host session: a part or an assembly with its units,
// views, appearance, surfaces, quilts, facet sets, features (components among
// them), layers and simplified representations. Tests build models by hand;
// the model loader builds them from CAD files.
//
// Everything the plug-in gets a handle to (models, surfaces, quilts, facet
// sets, facets) keeps its address while a run goes on: build a model
// completely before the plug-in sees it.
#include <array>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "host/geometry/ExactGeometry.h"
#include "host/geometry/SurfaceGeometry.h"
#include "toolkit/ProToolkit.h"

namespace host {

// The host's model type codes.
inline constexpr int modelTypeAssembly = 1;
inline constexpr int modelTypePart = 2;

// The host's feature types and statuses.
inline constexpr int featureTypeSolid = 917;
inline constexpr int featureTypeComponent = 1000;
inline constexpr int featureTypeThread = 1070;
inline constexpr int featureStatusActive = 0;
inline constexpr int featureStatusSuppressed = 5;

// Types of model items (ProModelitem::type) that the host hands out.
inline constexpr int itemTypeFeature = 1;
inline constexpr int itemTypeSurface = 5;
inline constexpr int itemTypeQuilt = 54;
inline constexpr int itemTypeLayer = 7;
inline constexpr int itemTypeSimprep = 52;
// A model's own item has the model's type code (1 or 2) and this id; a
// feature item (type 1 as well) always has an id of 0 or more.
inline constexpr int modelItemId = -1;

// Layer item types and display statuses.
inline constexpr int layerItemFeature = 3;
inline constexpr int layerItemQuilt = 57;
inline constexpr int layerNoStatus = -1;
inline constexpr int layerNormal = 1;
inline constexpr int layerDisplay = 2;
inline constexpr int layerBlank = 3;
inline constexpr int layerHidden = 5;

// Row vectors, translation in row 3.
using Matrix = std::array<std::array<double, 4>, 4>;
Matrix identityMatrix();

// The product a x b of two transforms: first a, then b (row vectors).
Matrix multiply(const Matrix& a, const Matrix& b);
// The inverse of a transform whose last column is 0, 0, 0, 1; none when it
// can't be inverted.
std::optional<Matrix> invertAffine(const Matrix& m);

struct Model;

struct Surface {
    int id = 0;
    int featureId = 0;        // the feature that owns the surface
    bool inactive = false;
    std::shared_ptr<const SurfaceGeometry> geometry;
    std::optional<AppearanceProps> appearance;  // none: the surface has no appearance of its own
    std::optional<TextureProps> texture;
    // The contours of its trimmed face, by the edge ids of the model's
    // interface data.
    std::vector<EdgeContour> contours;
};

struct Quilt {
    int id = 0;
    int featureId = 0;
    bool hidden = false;
    bool inactive = false;
    bool backup = false;      // a backup copy of another quilt
    std::vector<Surface> surfaces;
};

struct Facet {
    std::array<Point3, 3> points{};
    Point3 normal{};
};

struct FacetSet {
    std::vector<Facet> facets;
};

struct Feature {
    int id = 0;
    int type = featureTypeSolid;
    int status = featureStatusActive;
    bool hidden = false;              // hidden in the model tree
    // Component features: the component's model, null if it isn't loaded,
    // and its placement in the owner (component to owner, row vectors).
    Model* component = nullptr;
    Matrix placement = identityMatrix();
};

struct LayerItemRef {
    int type = layerItemFeature;      // layerItemFeature or layerItemQuilt
    int id = 0;
};

struct Layer {
    int id = 0;
    std::u16string name;
    int displayStatus = layerNormal;
    std::vector<LayerItemRef> items;
};

struct View {
    std::u16string name;              // up to 80 wide characters
    Matrix matrix = identityMatrix();
};

struct Representation {
    int id = 0;                       // -1 stands for the master representation
    std::u16string name;
    int defaultAction = 2;
    std::vector<ProSimprepitem> items;
    bool dataFails = false;           // ProSimprepdataGet fails for it
};

struct Model {
    std::u16string name;              // the bare name, without extension
    int type = modelTypePart;
    std::u16string lengthUnit = u"mm";
    // The outline's two corners; none: computed from the surfaces and facets.
    std::optional<std::array<Point3, 2>> outline;
    bool outlineFails = false;
    int version = 1;                  // raised by every modification
    bool verstampFails = false;       // ProMdlVerstampGet fails for it
    Matrix currentView = identityMatrix();
    std::vector<View> savedViews;
    std::optional<AppearanceProps> appearance;  // the model's own appearance
    std::optional<TextureProps> texture;
    std::vector<Surface> surfaces;
    std::vector<Quilt> quilts;
    std::vector<FacetSet> facetSets;
    std::vector<Feature> features;    // in the host's visit order
    std::vector<Layer> layers;
    std::vector<Representation> representations;
    // The exact geometry that ProPartToProIntfData gives; none: it fails.
    std::shared_ptr<const InterfaceDataSource> exactGeometry;

    void modify() { ++version; }

    // Items by id: surfaces include those of the quilts. Null if there is none;
    // with ids given twice the first wins.
    const Surface* findSurface(int id) const;
    const Feature* findFeature(int id) const;
    const Quilt* findQuilt(int id) const;
    const Layer* findLayer(int id) const;
    const Representation* findRepresentation(int id) const;
    const Representation* findRepresentation(std::u16string_view name) const;

private:
    // Where each id stood when last looked up, so that the look-ups of a run
    // don't search. A hit is checked, so a model changed since is still
    // answered right.
    mutable std::unordered_map<int, std::pair<size_t, size_t>> surfacePositions_;  // (quilt + 1 or 0, position)
    mutable std::unordered_map<int, size_t> featurePositions_;
};

// The component features met along a path of feature ids from `owner`,
// outermost first. None if an id is no component feature of the model
// reached so far, or if a model on the way (not the last) isn't loaded.
std::optional<std::vector<const Feature*>> componentsAlong(const Model& owner, std::span<const int> ids);

}  // namespace host
