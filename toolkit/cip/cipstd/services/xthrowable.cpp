#include "toolkit/cip/cipstd/services/xthrowable.h"

XOBJECT_DEFINE(xthrowable, "xthrowable", xobject)

xthrowable::xthrowable(xstring text) : message(std::move(text)) {}

std::string xthrowable::Details() const { return {}; }

xexception::xexception(xrchandle<xthrowable> exception) : thrown(std::move(exception)) {
    if (!thrown) {
        text = "an object toolkit exception that could not be made";
        return;
    }
    text = static_cast<const char*>(thrown->xgetrtti()->GetName());
    if (!thrown->GetMessage().IsEmpty()) text += std::string(": ") + static_cast<const char*>(thrown->GetMessage());
    std::string details = thrown->Details();
    if (!details.empty()) text += " (" + details + ")";
}

void xthrow(xthrowable* exception) { throw xexception(xrchandle<xthrowable>(exception)); }
