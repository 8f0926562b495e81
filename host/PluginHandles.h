#pragma once
// The objects behind the handles that the host hands the plug-in during a
// run and takes back through the matching free calls.
#include <array>
#include <optional>

#include "host/HandleStore.h"
#include "host/IntfDataHandles.h"
#include "host/geometry/SurfaceGeometry.h"
#include "toolkit/ProToolkit.h"

namespace host {

struct TessellationInput {
    std::optional<double> chordHeight;  // none until the plug-in sets one
    std::optional<int> uvProjection;
};

struct Tessellation {
    int surfaceId = 0;
    SurfaceMesh mesh;
};

// What ProFacetVerticesGet hands out: the facet's three vertex handles.
using FacetVertices = std::array<ProFacetVertex, 3>;

// A pick of the user, from ProSelect.
struct Selection {
    ProAsmcomppath path{};
};

class PluginHandles {
public:
    HandleStore<TessellationInput> tessellationInputs;
    HandleStore<Tessellation> tessellations;
    HandleStore<FacetVertices> facetVertices;
    HandleStore<ProSimprepdata> representationData;
    // Selections stay the host's: the plug-in never frees them.
    HandleStore<Selection> selections;
    HandleStore<IntfDataBlock> interfaceData;
    HandleStore<EdgedataHandle> edgeData;
    HandleStore<QuiltdataHandle> quiltData;
    HandleStore<CurveStorage> curves;
    GeomitemRecords geomitemData;

    // How many handles are out that the plug-in should have freed.
    size_t outstanding() const {
        return tessellationInputs.outstanding() + tessellations.outstanding() + facetVertices.outstanding() +
               representationData.outstanding() + interfaceData.outstanding() + edgeData.outstanding() +
               quiltData.outstanding() + curves.outstanding() + geomitemData.outstanding();
    }

    // A mesh for a new tessellation, with the storage of the last one freed,
    // so that a run's meshes reuse their buffers.
    SurfaceMesh takeSpareMesh() {
        SurfaceMesh mesh = std::move(spareMesh_);
        spareMesh_ = SurfaceMesh{};
        return mesh;
    }
    void keepSpareMesh(SurfaceMesh mesh) { spareMesh_ = std::move(mesh); }

private:
    SurfaceMesh spareMesh_;
};

}  // namespace host
