#include "data/columnbuilder.h"
#include "text/cappedlist.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"
#include "transforms/other/scriptargument.h"
#include "transforms/other/scriptvariables.h"

#include <QJSEngine>

/// Adds a column that a script of the user's computes row by row.
class TransformJavascript final : public Transform
{
    enum TypeAs { ByContents, AllString }; // the choices of Type_As

    static constexpr int shownErrors = CappedList::usualLimit;

public:
    TransformJavascript()
        : Transform("Javascript", "Script your own custom transform in Javascript.",
            "scripting arithmetic calculates maths formulas equations expressions numberic numbers dates text strings "
            "program custom coding code ecma javascript")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::text("New_Name", "New column name", "Javascript").tip("The name for the new column."),
            Option::selection("Type_As", "Type columns as", {"Number/Boolean/String", "String"})
                .tip("Whether to type values as Number/Boolean/String (according to column contents) or all as "
                     "String."),
            Option::script(
                "Script", "Javascript", "// see help (? button top right) for details\nreturn \"Hello world!\";"),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const ScriptVariables variables = ScriptVariables::resolved(values.text("Script"), input);
        if (!m_engine) {
            m_engine = std::make_unique<QJSEngine>();
        }
        m_typeErrors = CappedList();
        m_errorCount = 0;
        const std::vector<ScriptArgument> arguments = argumentsOf(
            input, variables.columns, values.choice("Type_As") == ByContents);
        Dataset result = input;
        result.addNamedColumn(evaluated(variables, arguments, input.rowCount()), values.text("New_Name"));
        report(variables.ambiguousNames);
        setResultText(QStringLiteral("%1 evaluated, %2 Javascript errors")
                          .arg(Messages::count(input.rowCount()), Messages::count(m_errorCount)));
        return result;
    }

    std::vector<ScriptArgument> argumentsOf(
        const Dataset &input, const QVector<ColumnIndex> &columns, bool typeByContents)
    {
        std::vector<ScriptArgument> arguments;
        for (const ColumnIndex column : columns) {
            const auto type = typeByContents ? ScriptArgument::typeOf(input, column) : ScriptArgument::String;
            arguments.emplace_back(input, column, type);
            addInfo(QStringLiteral("Column '%1' passed as Javascript %2 type")
                        .arg(input.columnName(column), ScriptArgument::typeName(type)));
        }
        return arguments;
    }

    /// The script as a function of its columns; an error object when it has faults.
    QJSValue function(const ScriptVariables &variables)
    {
        QStringList parameters;
        for (const ColumnIndex column : variables.columns) {
            parameters.append(ScriptVariables::parameterName(column));
        }
        return m_engine->evaluate(QStringLiteral("(function( ") + parameters.join(QStringLiteral(", "))
                                  + QStringLiteral(" ) { ") + variables.script + QStringLiteral(" })"));
    }

    CellColumn evaluated(const ScriptVariables &variables, const std::vector<ScriptArgument> &arguments, int rowCount)
    {
        QJSValue called = function(variables);
        const bool isCallable = called.isCallable();
        QJSValueList given;
        for (size_t i = 0; i < arguments.size(); ++i) {
            given.append(QJSValue());
        }
        ColumnBuilder column(rowCount);
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount);
            for (size_t i = 0; i < arguments.size(); ++i) {
                given[static_cast<int>(i)] = argument(arguments[i], row);
            }
            const QJSValue value = isCallable ? called.call(given) : called;
            const QString text = value.toString();
            if (value.isError()) {
                addError(value, text, row);
            }
            column.append(text);
        }
        return column.take();
    }

    QJSValue argument(const ScriptArgument &argument, int row)
    {
        bool ok = false;
        const QJSValue value = argument.value(row, &ok);
        if (ok) {
            return value;
        }
        m_typeErrors.add([&] {
            return QStringLiteral("Cannot convert value '%1' in column '%2' row %3 to %4")
                .arg(argument.text(row), argument.columnName(), QString::number(row + 1),
                    ScriptArgument::typeName(argument.type()));
        });
        return value;
    }

    void addError(const QJSValue &error, const QString &text, int row)
    {
        if (m_errorCount < shownErrors) {
            addWarning(
                QStringLiteral("%1 at script line %2 for dataset row %3")
                    .arg(text, error.property(QStringLiteral("lineNumber")).toString(), QString::number(row + 1)));
        } else if (m_errorCount == shownErrors) {
            addWarning(QStringLiteral("..."));
        }
        ++m_errorCount;
    }

    void report(const QStringList &ambiguousNames)
    {
        if (m_errorCount > 0) {
            warningList().prepend(QStringLiteral("%1 Javascript error(s)").arg(Messages::count(m_errorCount)));
        }
        if (m_typeErrors.count() > 0) {
            addWarning(QStringLiteral("%1 type error(s):").arg(Messages::count(m_typeErrors.count())));
            warningList() += m_typeErrors.texts();
            if (m_typeErrors.others() > 0) {
                addWarning(QStringLiteral("..."));
            }
        }
        if (!ambiguousNames.isEmpty()) {
            addWarning(QStringLiteral("Ambiguous column name(s): %1, first column with name used")
                           .arg(ambiguousNames.join(QStringLiteral(", "))));
        }
    }

    std::unique_ptr<QJSEngine> m_engine; ///< made by the first run; what a script leaves in it stays for later runs
    CappedList m_typeErrors;
    qint64 m_errorCount = 0;
};

TRANSFORM_FACTORY(TransformJavascript)
