#include "toolkit/cip/cipstd/services/cipExceptions.h"

XOBJECT_DEFINE(cipXException, "ciplib::XException", xthrowable)
XOBJECT_DEFINE(cipXTypeMismatch, "ciplib::XTypeMismatch", cipXException)
XOBJECT_DEFINE(cipXInvalidArrayIndex, "ciplib::XInvalidArrayIndex", cipXException)
XOBJECT_DEFINE(cipXInvalidSeqIndex, "ciplib::XInvalidSeqIndex", cipXException)
XOBJECT_DEFINE(cipXNegativeIndex, "ciplib::XNegativeIndex", cipXException)
XOBJECT_DEFINE(cipXRefCountable, "ciplib::XRefCountable", cipXException)

cipXTypeMismatch::cipXTypeMismatch(const char* name) : cipXException(xstring("Object type mismatch")), typeName(name) {}

std::string cipXTypeMismatch::Details() const { return static_cast<const char*>(typeName); }

cipXInvalidArrayIndex::cipXInvalidArrayIndex() : cipXException(xstring("Array index is out of range")) {}
cipXInvalidSeqIndex::cipXInvalidSeqIndex() : cipXException(xstring("Sequence index is out of range")) {}
cipXNegativeIndex::cipXNegativeIndex() : cipXException(xstring("Negative index")) {}
cipXRefCountable::cipXRefCountable() : cipXException(xstring("Object is reference countable")) {}
