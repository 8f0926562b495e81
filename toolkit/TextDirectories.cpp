#include "toolkit/TextDirectories.h"

#include "platform/FileSystem.h"
#include "platform/Files.h"
#include "toolkit/btk/Foundation.h"

namespace toolkit {
namespace {

constexpr char separator = static_cast<char>(platform::pathSeparator);

// "<root>/text/<language>" if the language has a name and its directory exists.
bool findLanguageDirectory(const std::string& text, const char* language, std::string& found) {
    if (*language == '\0') return false;
    std::string candidate = text + separator + language;
    if (!platform::directoryExists(candidate)) return false;
    found = candidate;
    return true;
}

}  // namespace

TextDirectories hostTextDirectories;

TextDirectories deriveTextDirectories(const char* root, int languageCode) {
    std::string text = std::string(root ? root : "") + separator + "text";
    std::string language;
    if (findLanguageDirectory(text, btk::languageName(languageCode), language) ||
        findLanguageDirectory(text, btk::languageName(btk::fallbackLanguageCode), language)) {
        return {language + separator + "menus", language, language + separator + "resource"};
    }
    return {text + separator + "menus", text, text + separator + "resource"};
}

}  // namespace toolkit
