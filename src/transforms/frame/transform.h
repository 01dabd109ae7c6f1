#pragma once

#include "data/dataset.h"
#include "transforms/frame/progressspan.h"
#include "transforms/frame/runmessages.h"

#include <QObject>
#include <QPair>
#include <QSet>
#include <QStringList>
#include <QVector>
#include <memory>

class DataSource;
class OptionTable;
class OptionValues;
class Parameter;
struct CatalogueRow;

/// Defines the maker that the catalogue names for a class.
#define TRANSFORM_FACTORY(Class)                                                                                       \
    Transform *make##Class()                                                                                           \
    {                                                                                                                  \
        return new Class;                                                                                              \
    }

/// One operation on tables: it owns its options, reads the tables of its inputs and returns a new one. It knows
/// nothing of the canvas. A class declares its options and computes; the rest is here. See docs/transforms.md.
class Transform : public QObject, public RunMessages
{
    Q_OBJECT

public:
    enum Category { All = 0, Merge = 1, Column = 2, Row = 3, Format = 4, Analysis = 5, Other = 6 };
    static constexpr int unlimitedInputs = 0x7fffffff;

    ~Transform() override;
    Q_DISABLE_COPY(Transform)

    // Identity: what the catalogue says of this kind
    int typeId() const;
    QString typeName() const;
    QString displayName() const;
    int category() const;
    bool isAdvanced() const;
    bool canCompareChanges() const;
    bool hasDrilldown() const;
    bool isVerify() const;
    int minInputs() const;
    int maxInputs() const;
    static QString categoryName(int category, bool withMnemonic);

    virtual QString description() const { return m_description; }
    /// Lower-case search words: those of the name, of the category and the class's own.
    QSet<QString> keywords() const;
    virtual QString imageName() const { return QString(); }
    QString imageHtml() const;
    QString inputsHelpText() const;
    virtual bool hasKeyColumns() const { return false; }
    virtual bool hasDuplicateColumns() const { return false; }
    virtual QString firstKeyParameterName() const { return QString(); }
    virtual QString secondKeyParameterName() const { return QString(); }
    virtual QString caseSensitiveParameterName() const { return QString(); }
    virtual QString dedupeColumnsParameterName() const { return QString(); }
    virtual QString matchTypeParameterName() const { return QString(); }
    virtual QString ignoreSpacesParameterName() const { return QString(); }
    virtual QString ignorePunctuationParameterName() const { return QString(); }
    virtual QString fuzzinessParameterName() const { return QString(); }
    virtual QString dedupeModeParameterName() const { return QString(); }

    // Options
    /// Builds the options anew for these inputs; `useDefaults` is true for a new item, which takes the user's defaults
    /// and suggestions, and false for one read from a document.
    virtual void createParameters(const QList<DataSource *> &inputs, bool useDefaults);
    const QList<Parameter *> &parameters() const { return m_parameters; }
    Parameter *parameter(const QString &name) const;
    Parameter *parameterForNode(const DataSource *node) const;
    QList<Parameter *> parametersForNode(const DataSource *node) const;
    /// Takes ownership; the old options go.
    void setParameters(const QList<Parameter *> &parameters);
    /// Binds column options to their inputs; an empty list unbinds them.
    void setInputs(const QList<DataSource *> &nodes);
    virtual bool hasConditionalParameters() const;
    /// Which options apply at present, for those that don't always.
    virtual QList<QPair<QString, bool>> parameterStates() const;
    /// Why an option's value makes no sense, such as an expression that isn't valid; empty when it does.
    QString optionFault(const QString &name) const;
    /// Warns of options that apply and are unset.
    void checkOptions();
    void saveUserDefault(const Parameter &parameter) const;
    /// A new object of the same class with copies of all options; the caller owns it.
    Transform *clone() const;

    // The operation
    /// Returns the new table, empty for a wrong number of inputs; sets `*hasIssues` when verification failed. Emits
    /// processed() every 1000 rows.
    virtual Dataset run(const QList<DataSource *> &inputs, bool *hasIssues);
    /// Rebinds "top" and "bottom" by the inputs' positions; true when that changed anything.
    virtual bool updateInputOrder(const QList<DataSource *> &inputs);

signals:
    /// Fraction done, 0 to 1.
    void processed(qreal fraction);

protected:
    /// The tables to work on, from top to bottom.
    using Inputs = QVector<const Dataset *>;

    /// `typeName` is the stored name of a catalogue row, `keywords` the class's own search words, parted by blanks.
    explicit Transform(const char *typeName, const char *description = "", const char *keywords = "");

    /// The options, in their order.
    virtual OptionTable options() const;
    /// Sets defaults that depend on the inputs, before the user's defaults are applied.
    virtual void adjustNewParameters(const QList<DataSource *> &inputs, bool useDefaults);
    /// The operation: the number of inputs fits and every option is there.
    virtual Dataset compute(const OptionValues &values, const Inputs &inputs);
    /// The table for a wrong number of inputs.
    virtual Dataset computeIncomplete(const Inputs &inputs);

    void addParameter(Parameter *parameter);
    void applyUserDefault(bool useDefaults, Parameter *parameter) const;
    /// Verification found errors.
    void setHasIssues() { m_hasIssues = true; }
    /// Reports progress at every 1000th row of a step, which takes all of the run unless told.
    void reportRow(int row, int rowCount, ProgressSpan step = ProgressSpan())
    {
        if (row % progressStep == 0) {
            emit processed(step.at(row, rowCount));
        }
    }
    static constexpr int progressStep = 1000;

private:
    const OptionTable &table() const;
    bool hasAllOptions() const;
    void refuseResult();

    const CatalogueRow &m_row;
    QString m_description;
    QStringList m_ownKeywords;
    mutable std::unique_ptr<OptionTable> m_table;
    QList<Parameter *> m_parameters;
    bool m_hasIssues = false;
};
