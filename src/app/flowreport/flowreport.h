#pragma once

#include <QString>

struct FlowDescription;

/// Tells somebody who doesn't have the program what a flow does, in one file with its picture in it.
namespace FlowReport {

QString html(const FlowDescription &flow);
QString markdown(const FlowDescription &flow);

/// Writes it to `path`: Markdown for the extensions md and markdown, HTML for html and htm, nothing for others. False
/// sets `error`, and what was there before is still there.
bool write(const QString &path, const FlowDescription &flow, QString *error);

} // namespace FlowReport
