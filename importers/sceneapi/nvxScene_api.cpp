#include "importers/sceneapi/nvxScene_api.h"

// Only the live road links to a running renderer; every other scene object
// answers these with false.

bool nvxScene_api::connect(const char*, int, int) { return false; }

bool nvxScene_api::disconnect() { return false; }

bool nvxScene_api::reserved_link() { return false; }

bool nvxScene_api::reserved_flag_a() { return false; }

bool nvxScene_api::reserved_flag_b() { return false; }

bool nvxScene_api::reserved_flag_c() { return false; }
