#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <vector>

/// The parts of a workbook file in their order, to be made by hand or looked into.
struct TestPackage
{
    struct Part
    {
        QString name;
        QByteArray bytes;
        QByteArray packed; ///< as the archive has them; empty for parts made by hand
    };
    std::vector<Part> parts;

    static TestPackage read(const QString &path);
    bool write(const QString &path) const;

    /// Null when there is no such part.
    const Part *find(const QString &name) const;
    QByteArray bytes(const QString &name) const;
    /// Replaces a part or adds one behind the others.
    void set(const QString &name, const QByteArray &bytes);
    /// Replaces a text that stands in the part.
    void edit(const QString &name, const QByteArray &from, const QByteArray &to);
    QStringList names() const;
};

/// What a program that reads the file could stumble over: types, relations, indexes and references that lead nowhere,
/// elements out of order. Empty for a sound file.
QStringList checkPackage(const QString &path);
