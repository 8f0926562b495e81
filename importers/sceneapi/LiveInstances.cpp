#include "importers/sceneapi/LiveInstances.h"

#include <tinyxml.h>

#include <cstdlib>

#include "importers/sceneapi/nvxLiveApi.h"
#include "platform/XmlText.h"

namespace nvx {

namespace {

// How deep below the scene's root a named item may stand, the root counting.
constexpr int NAME_SEARCH_DEPTH = 3;

// The first element of that name, depth first, the node itself included.
const TiXmlElement* find_element(const TiXmlNode& node, const char* name) {
    const TiXmlElement* element = node.ToElement();
    if (element && element->ValueStr() == name) return element;
    for (const TiXmlNode* child = node.FirstChild(); child; child = child->NextSibling())
        if (const TiXmlElement* found = find_element(*child, name)) return found;
    return nullptr;
}

// The decimal text of the element's first child. A missing element or text
// reads as 0, which no version range takes.
int number_in(const TiXmlNode& instance, const char* name) {
    const TiXmlElement* element = find_element(instance, name);
    const TiXmlNode* text = element ? element->FirstChild() : nullptr;
    return text ? static_cast<int>(std::strtol(text->Value(), nullptr, 10)) : 0;
}

// A scene is empty when none of its top-level entries has a child.
bool is_empty_scene(const TiXmlNode* root) {
    if (!root) return true;
    for (const TiXmlNode* entry = root->FirstChild(); entry; entry = entry->NextSibling())
        if (entry->FirstChild()) return false;
    return true;
}

bool has_named_item(const TiXmlNode& node, const std::string& name, int depth) {
    if (depth <= 0) return false;
    const TiXmlElement* element = node.ToElement();
    const char* attribute = element ? element->Attribute("name") : nullptr;
    if (attribute && name == attribute) return true;
    for (const TiXmlNode* child = node.FirstChild(); child; child = child->NextSibling())
        if (has_named_item(*child, name, depth - 1)) return true;
    return false;
}

}  // namespace

std::vector<RunningInstance> list_running(nvxLiveQuery& query, int min_version, int max_version) {
    std::vector<RunningInstance> instances;
    const char* text = query.list_instances();
    if (!text) return instances;
    TiXmlDocument document;
    platform::parseXmlText(document, text);
    const TiXmlNode* root = document.FirstChild();
    if (!root) return instances;
    for (const TiXmlNode* child = root->FirstChild(); child; child = child->NextSibling()) {
        int version = number_in(*child, "version_major");
        if (version < min_version || version > max_version) continue;
        instances.push_back({version, number_in(*child, "process_id"), number_in(*child, "livelink_port")});
    }
    return instances;
}

RunningInstance pick_instance(nvxLiveQuery& query, const std::vector<RunningInstance>& instances,
                              const std::string& wanted_scene, bool& fresh_instance) {
    RunningInstance best_fresh, best_named;
    for (const RunningInstance& instance : instances) {
        if (!query.attach(instance.process_id)) continue;
        const char* text = query.scene_text();
        if (!text) {
            query.detach();
            continue;
        }
        TiXmlDocument document;
        platform::parseXmlText(document, text);
        const TiXmlNode* root = document.FirstChild();
        if (instance.version > best_fresh.version && is_empty_scene(root)) best_fresh = instance;
        if (!wanted_scene.empty() && instance.version > best_named.version && root &&
            has_named_item(*root, wanted_scene, NAME_SEARCH_DEPTH))
            best_named = instance;
        query.detach();
    }
    fresh_instance = best_named.version < 1;
    return fresh_instance ? best_fresh : best_named;
}

}  // namespace nvx
