#include "updates/feed/ReleaseList.h"

#include <memory>

#include <appstream.h>
#include <pugixml.hpp>

namespace tarragon {

namespace {

struct Unreference {
    void operator()(gpointer object) const { g_object_unref(object); }
    void operator()(GBytes* bytes) const { g_bytes_unref(bytes); }
    void operator()(gchar* text) const { g_free(text); }
};
template <typename T>
using Owned = std::unique_ptr<T, Unreference>;

#if AS_CHECK_VERSION(1, 0, 0)
GPtrArray* entriesOf(AsReleaseList* list) {
    return as_release_list_get_entries(list);
}
GPtrArray* entriesOf(AsComponent* component) {
    return as_release_list_get_entries(as_component_get_releases_plain(component));
}
void unreference(AsReleaseList* list) {
    g_object_unref(list);
}
gchar* plainText(const gchar* markup) {
    return as_markup_convert(markup, AS_MARKUP_KIND_TEXT, nullptr);
}
#else
GPtrArray* entriesOf(GPtrArray* list) {
    return list;
}
GPtrArray* entriesOf(AsComponent* component) {
    return as_component_get_releases(component);
}
void unreference(GPtrArray* list) {
    g_ptr_array_unref(list);
}
gchar* plainText(const gchar* markup) {
    return as_markup_convert_simple(markup, nullptr);
}
#endif

std::string textOrEmpty(const gchar* text) {
    return text ? text : "";
}

std::vector<Release> releasesOf(const GPtrArray* entries) {
    std::vector<Release> releases;
    for (guint index = 0; index < entries->len; ++index) {
        auto* const entry = static_cast<AsRelease*>(g_ptr_array_index(entries, index));
        Release& release = releases.emplace_back();
        release.version = textOrEmpty(as_release_get_version(entry));
        release.isForEverybody = as_release_get_kind(entry) == AS_RELEASE_KIND_STABLE;
        release.link = textOrEmpty(as_release_get_url(entry, AS_RELEASE_URL_KIND_DETAILS));
        if (const gchar* markup = as_release_get_description(entry))
            release.notes = textOrEmpty(Owned<gchar>(plainText(markup)).get());
    }
    return releases;
}

enum class DocumentKind { ReleaseList, Component, Other };

// The library takes any document for a list without releases, so that the kind is found out before. A document that
// brings its own definitions is none that anybody writes releases in, but may be one that unfolds without end.
DocumentKind kindOf(const std::string& document) {
    pugi::xml_document tree;
    if (!tree.load_buffer(document.data(), document.size(), pugi::parse_minimal | pugi::parse_doctype))
        return DocumentKind::Other;
    for (const pugi::xml_node node : tree) {
        if (node.type() == pugi::node_doctype)
            return DocumentKind::Other;
    }
    const std::string root = tree.document_element().name();
    if (root == "releases")
        return DocumentKind::ReleaseList;
    return root == "component" ? DocumentKind::Component : DocumentKind::Other;
}

} // namespace

std::optional<std::vector<Release>> readReleaseList(const std::string& document) {
    const DocumentKind kind = kindOf(document);
    if (kind == DocumentKind::Other)
        return std::nullopt;
    const Owned<GBytes> bytes(g_bytes_new_static(document.data(), document.size()));
    const Owned<AsMetadata> metadata(as_metadata_new());
    as_metadata_set_format_style(metadata.get(), AS_FORMAT_STYLE_METAINFO);
    as_metadata_set_locale(metadata.get(), "C");
    if (kind == DocumentKind::ReleaseList) {
        auto* const list = as_metadata_parse_releases_bytes(metadata.get(), bytes.get(), nullptr);
        if (!list)
            return std::nullopt;
        std::vector<Release> releases = releasesOf(entriesOf(list));
        unreference(list);
        return releases;
    }
    if (!as_metadata_parse_bytes(metadata.get(), bytes.get(), AS_FORMAT_KIND_XML, nullptr))
        return std::nullopt;
    AsComponent* const component = as_metadata_get_component(metadata.get());
    return component ? std::optional(releasesOf(entriesOf(component))) : std::nullopt;
}

int compareVersions(const std::string& one, const std::string& other) {
    return as_vercmp(one.c_str(), other.c_str(), AS_VERCMP_FLAG_NONE);
}

} // namespace tarragon
