#pragma once

#include <glib-object.h>
#include <memory>

namespace prismo {

struct GObjectUnref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
/// Owns a reference to the object.
template <typename Object>
using GObjectPointer = std::unique_ptr<Object, GObjectUnref>;

struct GFree {
    void operator()(gpointer memory) const { g_free(memory); }
};
using GText = std::unique_ptr<char, GFree>;

} // namespace prismo
