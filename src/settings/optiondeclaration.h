#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <limits>

/// What a panel edits an option with. By the option's type (a check box, a number, a text, ...) unless another is told.
enum class OptionEditor { ByType, Choice, LongText, Path, Sheet, Encoding, ColumnWidths, Schema, FolderMatch, Hidden };

/// What is told of an option that doesn't depend on the options beside it: names, texts, choices and limits.
struct OptionDeclaration
{
    QByteArray documentKey;
    QString settingsKey; ///< empty without saved defaults
    QString label;       ///< as a panel shows it
    QString toolTip;
    QString tab; ///< of the panel, where it has several
    OptionEditor editor = OptionEditor::ByType;
    QStringList choices;
    QList<int> choiceNumbers;
    bool hasLimits = false;
    int lowest = std::numeric_limits<int>::min();
    int highest = std::numeric_limits<int>::max();
    bool otherMeansOne = false;
    bool keepsEmptyEntries = false;
    int summaryPlace = 0;
    QString summaryLabel; ///< empty for options that the summary leaves out
};
