#pragma once
// The scene as an Open CASCADE XDE document, the form that the kernel's mesh
// writers and its visualization take: each group an assembly placed by its
// transform, each mesh object a part made of one face that carries the
// triangulation with its normals and texture coordinates, each material a
// PBR material with the diffuse colour and, if its image is found, the
// texture. Coordinates stay in the scene's units and axes.
#include <Standard_Handle.hxx>
#include <filesystem>

#include "scenetools/SceneModel.h"

class TDocStd_Document;
class TopoDS_Face;

namespace scenetools {

// `sceneFolder` is where relative texture paths are looked for.
Handle(TDocStd_Document) makeXdeDocument(const Scene& scene, const std::filesystem::path& sceneFolder);

// The face of a mesh: a triangulation with the mesh's normals (made from
// the triangles, weighted by area, where the scene has none) and its
// texture coordinates.
TopoDS_Face makeMeshFace(const Mesh& mesh);

}  // namespace scenetools
