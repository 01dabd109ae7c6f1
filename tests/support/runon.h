#pragma once

#include "support/fakesource.h"
#include "transforms/frame/transform.h"

#include <QPair>
#include <QVariant>
#include <QVector>
#include <memory>
#include <vector>

/// Options by key. Columns are given by name or by number from 1, several as a list, sort columns with a "-" in front
/// or a negative number for descending; a Selection by its text, a Char also as a text of one character. Records are
/// given as they are, with the ids (1, 1), (1, 2) and so on for the first input, (2, 1) for the second.
using OptionSettings = QVector<QPair<QString, QVariant>>;

/// A transform that has run, with everything it told.
struct TransformRun
{
    std::vector<std::unique_ptr<FakeSource>> sources;
    std::unique_ptr<Transform> transform;
    Dataset result;
    bool hasIssues = false;
    QVector<qreal> progress;

    const QStringList &warnings() const { return transform->warnings(); }
    const QStringList &infos() const { return transform->infos(); }
    const QString &resultText() const { return transform->resultText(); }
};

/// Makes the kind with this stored name through the catalogue as a new item on `inputs`, sets the options and runs it.
/// An unknown kind, key or choice fails the test.
TransformRun runTransform(const QString &typeName, const OptionSettings &options, const QVector<Dataset> &inputs);

/// The same, only the table.
template<class... Tables>
Dataset runOn(const QString &typeName, const OptionSettings &options, const Tables &...inputs)
{
    return runTransform(typeName, options, {inputs...}).result;
}

/// Sets one option as OptionSettings has it.
void setOption(Transform &transform, const QString &key, const QVariant &value);
