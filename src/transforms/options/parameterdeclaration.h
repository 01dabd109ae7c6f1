#pragma once

#include <QString>

/// What one option of a transform is, apart from its value: kind, key, label, limits, and what it is shown with.
class ParameterDeclaration
{
public:
    enum Kind {
        SingleColumn,
        MultipleColumns,
        SortColumns,
        FilterColumns,
        ReorderColumns,
        Bool,
        Selection,
        Text,
        Int,
        Char,
        If,
        RemoveColumns,
        Script,
        RenameColumns,
        SplitRows,
        UniqueColumns,
        ReplaceTerms,
        Real,
        LongText,
        VerifyRules,
        Label,
        Date,
        PivotColumns,
        Locale
    };

    ParameterDeclaration(Kind kind, const QString &name, const QString &label)
        : m_kind(kind)
        , m_name(name)
        , m_label(label)
    {
    }

    Kind kind() const { return m_kind; }
    const QString &name() const { return m_name; }
    const QString &label() const { return m_label; }

    void setMinInt(int value) { m_minInt = value; }
    /// What the lower bound of an Int is shown as; empty for the number itself.
    void setMinText(const QString &text) { m_minText = text; }
    void setMaxInt(int value) { m_maxInt = value; }
    void setMinReal(double value) { m_minReal = value; }
    void setMaxReal(double value) { m_maxReal = value; }
    void setSuffix(const QString &suffix) { m_suffix = suffix; }
    void setToolTip(const QString &tip) { m_toolTip = tip; }
    void setNoneText(const QString &text) { m_noneText = text; }
    void setHighlightChecked(bool on) { m_highlightChecked = on; }
    void setTextRequired(bool on) { m_textRequired = on; }
    void setColumnRequired(bool on) { m_columnRequired = on; }
    void setHideSortOrder(bool on) { m_hideSortOrder = on; }
    void setFirstChoiceIsUnset(bool on) { m_firstChoiceIsUnset = on; }
    void setNonZeroRequired(bool on) { m_nonZeroRequired = on; }
    void setHasUserDefault(bool on) { m_hasUserDefault = on; }
    int minInt() const { return m_minInt; }
    const QString &minText() const { return m_minText; }
    int maxInt() const { return m_maxInt; }
    double minReal() const { return m_minReal; }
    double maxReal() const { return m_maxReal; }
    const QString &suffix() const { return m_suffix; }
    const QString &toolTip() const { return m_toolTip; }
    const QString &noneText() const { return m_noneText; }
    bool highlightChecked() const { return m_highlightChecked; }
    bool hideSortOrder() const { return m_hideSortOrder; }
    bool hasUserDefault() const { return m_hasUserDefault; }

protected:
    Kind m_kind;
    QString m_name;
    QString m_label;
    bool m_textRequired = true;
    bool m_nonZeroRequired = false;
    bool m_columnRequired = true;
    bool m_firstChoiceIsUnset = false;
    int m_minInt = 0;
    int m_maxInt = 999999999;
    double m_minReal = 0.0;
    double m_maxReal = 100.0;

private:
    QString m_minText;
    QString m_suffix;
    QString m_toolTip;
    QString m_noneText = QStringLiteral("<None selected>");
    bool m_highlightChecked = false;
    bool m_hideSortOrder = false;
    bool m_hasUserDefault = false;
};
