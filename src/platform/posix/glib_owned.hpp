#pragma once

#include <memory>

#include <glib-object.h>

/// What GLib hands out to be freed, each kind in its own way.
namespace pelrath {

struct GlibFree {
    void operator()(char* text) const { g_free(text); }
    void operator()(char** words) const { g_strfreev(words); }
    void operator()(GError* error) const { g_error_free(error); }
    void operator()(GKeyFile* file) const { g_key_file_free(file); }
    void operator()(GList* cells) const { g_list_free(cells); } ///< but not what they lead to
    void operator()(GMainContext* events) const { g_main_context_unref(events); }
};
template <class T>
using GlibOwned = std::unique_ptr<T, GlibFree>;

struct GlibUnref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
/// One reference to a GObject.
template <class T>
using GlibObject = std::unique_ptr<T, GlibUnref>;

} // namespace pelrath
