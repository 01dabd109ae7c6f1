#include "spreadsheet/xls/gsfhandle.h"

#include <gsf/gsf-utils.h>

namespace spreadsheet {
namespace {

void ignoreMessage(const gchar *, GLogLevelFlags, const gchar *, gpointer) {}

} // namespace

GsfSession::GsfSession()
    : m_previous(g_log_set_default_handler(ignoreMessage, nullptr))
{
    static const bool isReady = [] {
        gsf_init();
        return true;
    }();
    Q_UNUSED(isReady)
}

GsfSession::~GsfSession()
{
    g_log_set_default_handler(m_previous, nullptr);
}

} // namespace spreadsheet
