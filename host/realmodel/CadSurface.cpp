#include "host/realmodel/CadSurface.h"

#include <BRepBndLib.hxx>
#include <Bnd_Box.hxx>

#include <algorithm>

#include "host/cad/CadShapes.h"
#include "host/cad/FaceTessellation.h"

namespace host::realmodel {

CadSurface::CadSurface(std::shared_ptr<const cad::CadModel> model, int partIndex, int faceIndex,
                       std::shared_ptr<TessellationProgress> progress)
    : model_(std::move(model)), partIndex_(partIndex), faceIndex_(faceIndex), progress_(std::move(progress)) {}

const cad::CadFace& CadSurface::face() const {
    return model_->parts.at(static_cast<size_t>(partIndex_)).faces.at(static_cast<size_t>(faceIndex_));
}

TessellationOutcome CadSurface::tessellate(double chordHeight, SurfaceMesh& mesh) const {
    const auto start = std::chrono::steady_clock::now();
    if (model_->shapes && model_->shapes->takeMeshAhead()) cad::meshModelAhead(*model_, partIndex_, chordHeight);
    const cad::TessellationResult result = cad::tessellateFace(*model_, face(), chordHeight);
    if (progress_) progress_->count(partIndex_, chordHeight, std::chrono::steady_clock::now() - start);
    if (!result.ok()) return TessellationOutcome::Failed;
    const cad::FaceTessellation& source = *result.mesh;
    const size_t vertexCount = source.vertexCount();
    mesh.vertices.resize(vertexCount);
    mesh.normals.resize(vertexCount);
    mesh.parameters.resize(vertexCount);
    for (size_t i = 0; i < vertexCount; ++i) {
        mesh.vertices[i] = {source.vertices[3 * i], source.vertices[3 * i + 1], source.vertices[3 * i + 2]};
        mesh.normals[i] = {source.normals[3 * i], source.normals[3 * i + 1], source.normals[3 * i + 2]};
        mesh.parameters[i] = {source.uvs[2 * i], source.uvs[2 * i + 1]};
    }
    const size_t triangleCount = source.triangleCount();
    mesh.triangles.resize(triangleCount);
    for (size_t t = 0; t < triangleCount; ++t) {
        mesh.triangles[t] = {source.triangles[3 * t], source.triangles[3 * t + 1], source.triangles[3 * t + 2]};
    }
    mesh.hasVertices = true;
    mesh.hasNormals = true;
    mesh.hasParameters = true;
    mesh.hasTriangles = true;
    return TessellationOutcome::Done;
}

void CadSurface::extend(Point3& low, Point3& high) const {
    Bnd_Box box;
    BRepBndLib::Add(model_->shapes->face(face().shapeIndex), box, false);
    if (box.IsVoid()) return;
    double corners[6];
    box.Get(corners[0], corners[1], corners[2], corners[3], corners[4], corners[5]);
    for (int i = 0; i < 3; ++i) {
        low[i] = std::min(low[i], corners[i]);
        high[i] = std::max(high[i], corners[3 + i]);
    }
}

}  // namespace host::realmodel
