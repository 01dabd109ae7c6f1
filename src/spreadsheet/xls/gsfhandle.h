#pragma once

#include <glib-object.h>
#include <memory>

namespace spreadsheet {

struct GsfRelease
{
    void operator()(gpointer object) const { g_object_unref(object); }
};

/// Owns a reference to an object of the container library.
template<typename Object>
using GsfHandle = std::unique_ptr<Object, GsfRelease>;

/// Set up around calls of the container library: what it would print on damaged files is kept from the error output.
class GsfSession
{
public:
    GsfSession();
    ~GsfSession();
    GsfSession(const GsfSession &) = delete;
    GsfSession &operator=(const GsfSession &) = delete;

private:
    GLogFunc m_previous;
};

} // namespace spreadsheet
