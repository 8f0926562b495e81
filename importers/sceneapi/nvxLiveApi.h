#pragma once
// The boundary with the renderer's run-time library. The library exports
//
//   extern "C" nvxLiveRoot* vantrel_live_initialize();
//
// and its root object hands out the scene object (the scene contract) and the
// query object, which reports the running renderers as XML texts. Both sides
// implement these tables of virtual operations, so their order is fixed.
#include "importers/sceneapi/nvxScene_api.h"

class nvxLiveQuery;

class nvxLiveRoot {
public:
    // Deleting the root releases what the library made for it.
    virtual ~nvxLiveRoot() = default;
    // Owned by the root.
    virtual nvxScene_api* scene_api() = 0;
    virtual nvxLiveQuery* query_api() = 0;
};

class nvxLiveQuery {
public:
    // The running renderers as XML, one child of the root element each;
    // null if none. Owned by the library.
    virtual const char* list_instances() = 0;
    // Makes the renderer with the process id the subject of the next queries.
    virtual bool attach(int process_id) = 0;
    // Slots the library fills that this side never calls.
    virtual void reserved_query_a() {}
    virtual void detach() = 0;
    virtual void reserved_query_b() {}
    virtual void reserved_query_c() {}
    // The attached renderer's scene as XML; null if none. Owned by the library.
    virtual const char* scene_text() = 0;

protected:
    // The library owns the query object; it is never deleted from here.
    ~nvxLiveQuery() = default;
};

// The library's one export.
using nvxLiveInitialize = nvxLiveRoot* (*)();
inline constexpr const char* LIVE_INITIALIZE_EXPORT = "vantrel_live_initialize";
