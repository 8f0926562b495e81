// A stand-in library whose initialisation answers no root object.
class nvxLiveRoot;

extern "C" __attribute__((visibility("default"))) nvxLiveRoot* vantrel_live_initialize() { return nullptr; }
