#include "app/examples.h"

#include "settings/product.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

/// What the flows write goes here.
const char *const resultsFolder = "results";

bool copyFile(const QFileInfo &from, const QString &to, QString &error)
{
    QFile file(from.filePath());
    if (!file.copy(to)) {
        error = QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(to), file.errorString());
        return false;
    }
    // The installed file may be one that nobody writes to, and permissions are copied too.
    QFile::setPermissions(to, QFile::permissions(to) | QFile::WriteOwner | QFile::ReadOwner);
    return true;
}

} // namespace

const QVector<Examples::Example> &Examples::all()
{
    static const QVector<Example> examples{
        {QStringLiteral("clean-contacts.transform"), QStringLiteral("Clean a contact list")},
        {QStringLiteral("merge-lists.transform"), QStringLiteral("Merge two lists and see what didn't match")},
        {QStringLiteral("near-duplicates.transform"), QStringLiteral("Find near duplicates")},
        {QStringLiteral("check-delivery.transform"), QStringLiteral("Check a delivery against rules and fail")},
        {QStringLiteral("reshape-report.transform"), QStringLiteral("Reshape a pivot from a report")},
        {QStringLiteral("monthly-workbook.transform"), QStringLiteral("Fill an Excel template each month")},
        {QStringLiteral("split-by-region.transform"), QStringLiteral("Split a file into one a region")},
        {QStringLiteral("monthly-chart.transform"), QStringLiteral("Chart monthly sums")},
    };
    return examples;
}

QString Examples::folder()
{
    const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    return documents.absoluteFilePath(QStringLiteral("%1 examples").arg(QLatin1String(Product::name)));
}

bool Examples::copy(const QString &source, const QString &target, QString &error)
{
    const QFileInfoList files = QDir(source).entryInfoList(QDir::Files, QDir::Name);
    if (source.isEmpty() || files.isEmpty()) {
        error = QStringLiteral("The examples aren't installed.");
        return false;
    }
    const QDir folder(target);
    if (!QDir().mkpath(folder.filePath(QString::fromLatin1(resultsFolder)))) {
        error = QStringLiteral("The folder '%1' can't be made.").arg(QDir::toNativeSeparators(target));
        return false;
    }
    for (const QFileInfo &file : files) {
        const QString copied = folder.filePath(file.fileName());
        if (!QFileInfo::exists(copied) && !copyFile(file, copied, error)) {
            return false;
        }
    }
    return true;
}
