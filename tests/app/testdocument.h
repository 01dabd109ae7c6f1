#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QUrl>

// Pieces of documents for tests: an input, a transform or an output as XML, joined into a document file.

inline QByteArray encoded(const QString &text)
{
    return QUrl::toPercentEncoding(text);
}

inline QByteArray inputXml(int id, const QString &alias, const QString &path, const QByteArray &more = QByteArray())
{
    return "<input id=\"" + QByteArray::number(id)
           + "\" medium=\"0\" header=\"1\" file_type=\"0\" delimiter=\"1\" path=\"" + encoded(path) + "\" alias=\""
           + encoded(alias) + "\" " + more + "/>";
}

inline QByteArray outputXml(int id, const QString &alias, const QString &path, int writeMode = 1)
{
    return "<output id=\"" + QByteArray::number(id) + "\" pos_v12=\"300\x1f" + QByteArray::number(id * 120)
           + "\" file_type=\"0\" delimiter=\"1\" line_endings=\"2\" bom=\"0\" encoding=\"UTF-8\" write_header=\"1\" "
             "enable_output=\""
           + QByteArray::number(writeMode) + "\" path=\"" + encoded(path) + "\" alias=\"" + encoded(alias) + "\"/>";
}

inline QByteArray connectionXml(int from, int to)
{
    return "<connection start_id=\"" + QByteArray::number(from) + "\" end_id=\"" + QByteArray::number(to) + "\"/>";
}

/// A cell of the batch grid.
inline QByteArray batchXml(int row, const QString &alias, const QString &value)
{
    return "<batch_value row=\"" + QByteArray::number(row) + "\" alias=\"" + encoded(alias) + "\" value=\""
           + encoded(value) + "\"/>";
}

/// The parts of a document; `meta` takes elements beside the version.
struct TestDocument
{
    QByteArray inputs;
    QByteArray transforms;
    QByteArray outputs;
    QByteArray charts;
    QByteArray connections;
    QByteArray meta;
    QByteArray batch; ///< the elements of batches
    int version = 86;

    QByteArray xml() const
    {
        return "<!DOCTYPE Quillmere>\n<root><meta><version value=\"" + QByteArray::number(version) + "\"/>" + meta
               + "</meta><inputs>" + inputs + "</inputs><transforms>" + transforms + "</transforms><outputs>" + outputs
               + "</outputs><charts>" + charts + "</charts><notes/><connections>" + connections + "</connections>"
               + batch + "</root>\n";
    }
};

inline void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("can't write %s", qPrintable(path));
    }
}

inline QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}
