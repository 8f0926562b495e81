#include "export/ExactSurfaceObjects.h"

#include <vector>

#include "export/NurbsSurfaces.h"
#include "export/TrimContours.h"
#include "export/TrimCurves.h"

int writeExactSurfaces(nvxScene_api& scene, ScratchArrays& buffers, const ExactGeometrySource& source,
                       ProSurface surface, const std::string& partName, const std::function<void()>& emitMaterial) {
    int id = 0;
    ProSurfaceIdGet(surface, &id);
    const std::vector<ProSurfacedata> row = source.tables->exactSurfacesById[id];
    int written = 0;
    for (ProSurfacedata exact : row) {
        if (!exact) continue;
        buffers.clearTrim();
        ContourVisitData data;
        data.solid = source.solid;
        data.surface = &surface;
        data.interfaceData = source.interfaceData;
        data.edgeIndexById = &source.tables->edgeIndexById;
        data.visitedSurfaceIds = source.visitedSurfaceIds;
        data.buffers = &buffers;
        readTrimContours(data);
        scene.begin_object(partName.c_str(), true);
        scene.begin_geometry("nurbs");
        emitNurbsSurface(scene, exact);
        emitTrimAttributes(scene, buffers);
        scene.end_geometry();
        emitMaterial();
        scene.end_object();
        ++written;
    }
    return written;
}
