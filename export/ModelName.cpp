#include "export/ModelName.h"

#include "toolkit/btk/TextConversion.h"

std::string modelNameOf(ProMdl model) {
    ProMdlName wideName = {};
    ProMdlNameGet(model, wideName);
    wideName[sizeof wideName / sizeof wideName[0] - 1] = 0;
    char name[260];
    btk::narrowToBuffer(wideName, name, sizeof name);
    return name;
}
