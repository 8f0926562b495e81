#pragma once
// Short ways to build the models of a test session: parts of unit squares
// with chosen appearances and textures, quilts, facet sets, views,
// representations, and assemblies of components with placements, layers and
// flags. Add a model to the session before linking it as a component, so
// that the component points at the session's copy:
//
//     Model& bolt = session.addModel(part(u"bolt", 2));
//     Model& top = session.addModel(assembly(u"top"));
//     addComponent(top, &bolt, 10, translation(0, 0, 5));
#include <string>
#include <string_view>
#include <vector>

#include "host/Model.h"

namespace host::fixtures {

// The feature that owns the surfaces of a part, and the id of its first surface.
inline constexpr int bodyFeatureId = 1;
inline constexpr int firstSurfaceId = 101;

// An appearance with that Name and colour; the Label is the name unless given.
AppearanceProps appearance(std::u16string_view name, Point3 colour, double diffuse = 1.0,
                           std::optional<std::u16string_view> label = std::nullopt);
// Texture paths: colour, decal and bump.
TextureProps texture(std::string_view colour, std::string_view decal = {}, std::string_view bump = {});

// A part with its body feature and `squares` unit squares side by side along x.
Model part(std::u16string name, int squares = 1);
Model assembly(std::u16string name);

// A unit square owned by `featureId`, with the id after the model's highest surface id.
Surface& addSquare(Model& model, Point3 corner, int featureId = bodyFeatureId);
// A quilt of `squares` unit squares, with a new feature of its own that owns it.
Quilt& addQuilt(Model& model, int squares);
// A facet set of `facets` triangles side by side along x, normals along +z.
FacetSet& addFacetSet(Model& model, int facets);
View& addView(Model& model, std::u16string name, const Matrix& matrix);
Representation& addRepresentation(Model& model, int id, std::u16string name, int defaultAction = 2);
// An item of a representation: the component path and the action type.
ProSimprepitem representationItem(const std::vector<int>& path, int actionType);
// A component feature placing `component` (null: not loaded) in the assembly.
Feature& addComponent(Model& assembly, Model* component, int featureId, const Matrix& placement = identityMatrix());
Layer& addLayer(Model& model, int id, std::u16string name, int displayStatus, std::vector<LayerItemRef> items);

// Transforms in the row-vector form.
Matrix translation(double x, double y, double z);
Matrix rotationX(double degrees);
Matrix rotationY(double degrees);
Matrix rotationZ(double degrees);

}  // namespace host::fixtures
