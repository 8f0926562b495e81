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
#include "host/geometry/RowMatrix.h"
#include "host/geometry/SurfaceGeometry.h"
#include "toolkit/ProToolkit.h"

namespace host {


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
    int type = PRO_FEAT_TYPE_SOLID;
    int status = PRO_FEAT_ACTIVE;
    bool hidden = false;              // hidden in the model tree
    // Component features: the component's model, null if it isn't loaded,
    // and its placement in the owner (component to owner, row vectors).
    Model* component = nullptr;
    Matrix placement = identityMatrix();
    // What the owner shows on the component's surfaces in place of their own:
    // an appearance, and textures with their placements. None: their own.
    std::optional<AppearanceProps> shownAppearance{};
    std::optional<TextureProps> shownTexture{};
    std::vector<ProTextureplacement> shownPlacements{};
};

struct LayerItemRef {
    int type = PRO_LAYER_ITEM_FEATURE;      // PRO_LAYER_ITEM_FEATURE or PRO_LAYER_ITEM_QUILT
    int id = 0;
};

struct Layer {
    int id = 0;
    std::u16string name;
    int displayStatus = PRO_LAYER_NORMAL;
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
};

struct Model {
    std::u16string name;              // the bare name, without extension
    int type = PRO_MDL_PART;
    std::u16string lengthUnit = u"mm";
    // The outline's two corners; none: computed from the surfaces and facets.
    std::optional<std::array<Point3, 2>> outline;
    int version = 1;                  // raised by every modification
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
