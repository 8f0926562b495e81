#include "export/MeshObject.h"

#include "export/MaterialEmission.h"
#include "export/SceneArrays.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"
#include "plugin/VantrelPlugin.h"

bool meshIsWritable(const VantrelPlugin& plugin) {
    return !plugin.scratchArrays.meshVertices.empty() && !plugin.scratchArrays.meshTriangles.empty();
}

void clearMeshBuffers(VantrelPlugin& plugin) {
    ScratchArrays& buffers = plugin.scratchArrays;
    buffers.meshVertices.clear();
    buffers.meshNormals.clear();
    buffers.meshUvs.clear();
    buffers.meshTriangles.clear();
}

void writeMeshObject(VantrelPlugin& plugin, const std::string& partName, const MaterialRecord& record) {
    nvxScene_api& scene = *plugin.scene->scene();
    const ScratchArrays& buffers = plugin.scratchArrays;
    scene.begin_object(partName.c_str(), true);
    scene.begin_geometry("triangles");
    setFloatTriples(scene, "vertices", buffers.meshVertices);
    if (!buffers.meshNormals.empty()) setFloatTriples(scene, "normals", buffers.meshNormals);
    if (!buffers.meshUvs.empty()) setFloats(scene, "uv_tex", buffers.meshUvs);
    setInts(scene, "triangles", buffers.meshTriangles);
    scene.end_geometry();
    emitMaterial(plugin, partName, record);
    scene.end_object();
}
