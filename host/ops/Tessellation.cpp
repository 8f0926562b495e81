// Tessellation inputs, the tessellation of one surface, and the host arrays
// of its mesh. Every request is recorded in the session with its chord
// height and outcome.
#include <cmath>

#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"

namespace host {
namespace {

template <typename Element, typename Source>
ProError giveMeshArray(Session& session, const char* operation, ProTessellation handle, Element** array,
                       std::vector<Source> SurfaceMesh::*elements, bool SurfaceMesh::*present, const char* kind) {
    static_assert(sizeof(Element) == sizeof(Source), "the host's element has the toolkit's layout");
    if (!array) return PRO_TK_BAD_INPUTS;
    const Tessellation* tessellation = session.handles().tessellations.find(handle);
    if (!tessellation) {
        session.errors().add(std::string(operation) + ": the handle is no tessellation that is out");
        return PRO_TK_BAD_INPUTS;
    }
    const SurfaceMesh& mesh = tessellation->mesh;
    if (!(mesh.*present)) {
        *array = nullptr;
        return PRO_TK_E_NOT_FOUND;
    }
    Source* copy = session.arrays().copyOf<Source>(mesh.*elements, kind);
    *array = reinterpret_cast<Element*>(copy);
    return PRO_TK_NO_ERROR;
}

TessellationInput* inputOf(Session& session, const char* operation, ProSurfaceTessellationInput handle) {
    TessellationInput* input = session.handles().tessellationInputs.find(handle);
    if (!input) session.errors().add(std::string(operation) + ": the handle is no tessellation input that is out");
    return input;
}

}  // namespace

ProError ops::ProSurfacetessellationinputAlloc(Session& session, ProSurfaceTessellationInput* input) {
    if (!input) return PRO_TK_BAD_INPUTS;
    *input = handleOf<ProSurfaceTessellationInput>(*session.handles().tessellationInputs.make());
    return PRO_TK_NO_ERROR;
}

ProError ops::ProSurfacetessellationinputFree(Session& session, ProSurfaceTessellationInput input) {
    if (!inputOf(session, "ProSurfacetessellationinputFree", input)) return PRO_TK_BAD_INPUTS;
    session.handles().tessellationInputs.release(input);
    return PRO_TK_NO_ERROR;
}

// A negative or non-finite chord height is refused and the input keeps its value.
ProError ops::ProSurfacetessellationinputChordheightSet(Session& session, ProSurfaceTessellationInput handle,
                                                        double chordHeight) {
    TessellationInput* input = inputOf(session, "ProSurfacetessellationinputChordheightSet", handle);
    if (!input || !std::isfinite(chordHeight) || chordHeight < 0.0) return PRO_TK_BAD_INPUTS;
    input->chordHeight = chordHeight;
    return PRO_TK_NO_ERROR;
}

// The projection is kept; the meshes of the headless host have their own parameters.
ProError ops::ProSurfacetessellationinputUvprojectionSet(Session& session, ProSurfaceTessellationInput handle,
                                                         int projectionType, void*) {
    TessellationInput* input = inputOf(session, "ProSurfacetessellationinputUvprojectionSet", handle);
    if (!input) return PRO_TK_BAD_INPUTS;
    input->uvProjection = projectionType;
    return PRO_TK_NO_ERROR;
}

// The surface is meshed at the input's chord height. A surface that refuses
// answers a failure; one that has no tessellation answers success with a
// null handle. An input without a chord height (none set, or only refused
// ones) answers bad inputs, as the CAD host does: the plug-in's retry ladder
// goes on from there. A surface without geometry is a fault of the test
// model, logged as such.
ProError ops::ProSurfaceTessellationGet(Session& session, ProSurface surface, ProSurfaceTessellationInput handle,
                                        ProTessellation* tessellation) {
    constexpr const char* operation = "ProSurfaceTessellationGet";
    const TessellationInput* input = inputOf(session, operation, handle);
    if (!input || !surface || !tessellation) return PRO_TK_BAD_INPUTS;
    const Surface& source = *objectOf<Surface>(surface);
    if (!input->chordHeight) return PRO_TK_BAD_INPUTS;
    if (!source.geometry) {
        session.errors().add(std::string(operation) + ": surface " + std::to_string(source.id) + " has no geometry");
        return PRO_TK_GENERAL_ERROR;
    }
    SurfaceMesh mesh = session.handles().takeSpareMesh();
    TessellationOutcome outcome = source.geometry->tessellate(*input->chordHeight, mesh);
    session.tessellationRequests().push_back({source.id, *input->chordHeight, outcome});
    if (outcome != TessellationOutcome::Done) {
        session.handles().keepSpareMesh(std::move(mesh));
        if (outcome == TessellationOutcome::Failed) return PRO_TK_GENERAL_ERROR;
        *tessellation = nullptr;
        return PRO_TK_NO_ERROR;
    }
    Tessellation* made = session.handles().tessellations.make(Tessellation{source.id, std::move(mesh)});
    *tessellation = handleOf<ProTessellation>(*made);
    return PRO_TK_NO_ERROR;
}

ProError ops::ProTessellationVerticesGet(Session& session, ProTessellation tessellation, Pro3dPnt** vertices) {
    return giveMeshArray(session, "ProTessellationVerticesGet", tessellation, vertices, &SurfaceMesh::vertices,
                         &SurfaceMesh::hasVertices, "tessellation vertices");
}

ProError ops::ProTessellationNormalsGet(Session& session, ProTessellation tessellation, ProVector** normals) {
    return giveMeshArray(session, "ProTessellationNormalsGet", tessellation, normals, &SurfaceMesh::normals,
                         &SurfaceMesh::hasNormals, "tessellation normals");
}

ProError ops::ProTessellationParamsGet(Session& session, ProTessellation tessellation, Pro2dPnt** parameters) {
    return giveMeshArray(session, "ProTessellationParamsGet", tessellation, parameters, &SurfaceMesh::parameters,
                         &SurfaceMesh::hasParameters, "tessellation parameters");
}

ProError ops::ProTessellationFacetsGet(Session& session, ProTessellation tessellation, ProTriangle** triangles) {
    return giveMeshArray(session, "ProTessellationFacetsGet", tessellation, triangles, &SurfaceMesh::triangles,
                         &SurfaceMesh::hasTriangles, "tessellation triangles");
}

// The arrays fetched from the tessellation are the plug-in's to free.
ProError ops::ProTessellationFree(Session& session, ProTessellation tessellation) {
    std::unique_ptr<Tessellation> freed = session.handles().tessellations.take(tessellation);
    if (!freed) {
        session.errors().add("ProTessellationFree: the handle is no tessellation that is out");
        return PRO_TK_BAD_INPUTS;
    }
    session.handles().keepSpareMesh(std::move(freed->mesh));
    return PRO_TK_NO_ERROR;
}

}  // namespace host
