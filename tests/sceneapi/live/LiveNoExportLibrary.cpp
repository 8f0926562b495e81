// A stand-in library that loads but lacks the initialisation export.
extern "C" __attribute__((visibility("default"))) int vantrel_live_version() { return 6; }
