#pragma once
// The process-wide loader of the renderer's run-time library. The first call
// of a getter finds the library through the renderer's registered folders
// (or the working directory), loads it and takes its root object; a failure
// leaves nothing loaded, and the next call tries everything again.
#include "importers/sceneapi/nvxLiveApi.h"

// The library's scene object, loading it first; null on failure.
nvxScene_api* nvx_get_scene_api();
// The library's query object, loading it first; null on failure.
nvxLiveQuery* nvx_get_query_api();
// Deletes the root and unloads the library, if they are there.
void nvx_release_live();
