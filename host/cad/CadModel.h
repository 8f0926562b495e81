#pragma once
// A loaded CAD model, described without any host or geometry kernel types:
// parts with their faces, edges, quilts and facets, assemblies of placed
// components, layers and the length unit. The exact shapes stay behind
// `shapes`, reached by the indexes that faces and edges carry.
#include <array>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/cad/StepCodePage.h"
#include "host/geometry/RowMatrix.h"

namespace host::cad {

class CadShapes;

// Points are row vectors: p' = p * M, the translation in row 3.
using RowMatrix = host::Matrix;
using host::identityMatrix;

std::array<double, 3> transformPoint(const RowMatrix& matrix, const std::array<double, 3>& point);

// Two corners of an axis-aligned box. An empty box has min above max.
struct Outline {
    std::array<double, 3> min{1.0, 1.0, 1.0};
    std::array<double, 3> max{-1.0, -1.0, -1.0};

    bool empty() const { return min[0] > max[0]; }
    void add(const std::array<double, 3>& point);
    // The length of the diagonal between the corners; 0 when empty.
    double diagonal() const;
};

// What a shape looks like: a colour, optionally named and textured.
struct CadAppearance {
    std::string name;          // the material's label; empty for a bare colour
    double red = 0.5;          // colour components from 0 to 1, as the file gives them
    double green = 0.5;
    double blue = 0.5;
    double diffuse = 1.0;      // diffuse coefficient
    double transparency = 0.0; // 0 opaque, 1 fully transparent
    std::string texturePath;   // absolute path of the colour image; empty if none
};

// One use of an edge in a face's contour: the edge's id, whether the
// contour runs it against its own direction, and the edge as the contour
// uses it (its orientation picks the side of a seam).
struct CadEdgeUse {
    int edgeId = 0;
    bool reversed = false;
    int shapeIndex = -1;
};

// A wire of a face: the outer one first, then the holes; edges in the order
// the wire runs.
struct CadContour {
    bool outer = true;
    std::vector<CadEdgeUse> edges;
};

struct CadFace {
    int id = 0;               // positive, unique among the part's faces, edges and quilts
    bool reversed = false;    // the face is used against its surface's natural normal
    int quiltId = 0;          // the quilt that holds the face; 0 for a face of the solid
    int shapeIndex = -1;      // index of the exact face in the model's shapes
    std::optional<CadAppearance> appearance;  // the face's own, if it has one
    std::vector<CadContour> contours;
};

struct CadEdge {
    int id = 0;
    std::vector<int> faceIds;  // the faces that meet at the edge, usually two
    int shapeIndex = -1;       // index of the exact edge in the model's shapes
};

// A connected set of faces that is not part of a solid.
struct CadQuilt {
    int id = 0;
    std::vector<int> faceIds;
};

// One triangle of a faceted part: its corners and its unit normal.
struct Facet {
    std::array<std::array<double, 3>, 3> points{};
    std::array<double, 3> normal{};
};

struct CadPart {
    std::string name;
    std::vector<CadFace> faces;
    std::vector<CadEdge> edges;
    std::vector<CadQuilt> quilts;
    std::vector<Facet> facets;   // triangles of meshes that have no exact surface
    std::optional<CadAppearance> appearance;
    std::vector<std::string> layerNames;
    Outline outline;  // holds the part; around free-form faces it may stand a little off them
};

enum class NodeKind { part, assembly };

struct NodeRef {
    NodeKind kind = NodeKind::part;
    int index = -1;  // into CadModel::parts or CadModel::assemblies
};

// One use of a part or a sub-assembly inside an assembly.
struct CadComponent {
    int id = 0;                 // positive, unique in the model
    NodeRef target;
    std::string instanceName;   // the occurrence's own name, if the file gives one
    RowMatrix placement = identityMatrix();  // component to parent
    bool blanked = false;       // hidden itself, its model hidden, or on a hidden layer
    std::vector<std::string> layerNames;     // of the occurrence and of its model
    std::optional<CadAppearance> appearance; // an override for this occurrence only
};

struct CadAssembly {
    std::string name;
    std::vector<CadComponent> components;
};

struct CadLayer {
    std::string name;
    bool visible = true;
};

struct CadModel {
    std::string sourcePath;  // absolute
    std::string unitName;    // "mm", "cm", "m", "in", "ft", "mil", "micron", ...
    std::vector<CadPart> parts;
    std::vector<CadAssembly> assemblies;
    std::vector<CadLayer> layers;
    NodeRef top;
    std::vector<std::string> warnings;  // what was left out while loading, and why
    std::shared_ptr<CadShapes> shapes;
    std::optional<StepCodePage> nameCodePage;  // a STEP file's: how its names were decoded
};

// A file that can't be turned into a model: the message names the file.
class CadLoadError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The bounding box of a part, or of an assembly with all its components placed.
Outline outlineOf(const CadModel& model, NodeRef node);

}  // namespace host::cad
