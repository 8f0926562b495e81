#include "export/MeshObject.h"

#include "export/MaterialEmission.h"
#include "export/SceneArrays.h"

void writeMeshObject(nvxScene_api& scene, const ScratchArrays& buffers, const std::string& partName,
                     const MaterialRecord& record, bool separateMaterials) {
    scene.begin_object(partName.c_str(), true);
    scene.begin_geometry("triangles");
    setFloatTriples(scene, "vertices", buffers.meshVertices);
    if (!buffers.meshNormals.empty()) setFloatTriples(scene, "normals", buffers.meshNormals);
    if (!buffers.meshUvs.empty()) setFloats(scene, "uv_tex", buffers.meshUvs);
    setInts(scene, "triangles", buffers.meshTriangles);
    scene.end_geometry();
    emitMaterial(scene, separateMaterials, partName, record);
    scene.end_object();
}
