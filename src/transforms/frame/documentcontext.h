#pragma once

#include <QString>

/// What a run may know of the open document.
namespace DocumentContext {

/// The document's path; empty for one that has never been saved.
QString path();
void setPath(const QString &path);

} // namespace DocumentContext
