#include "data/dataset.h"
#include "document/help/examplepage.h"
#include "graph/graphscene.h"
#include "graph/transformnode.h"
#include "inputnode/inputnode.h"
#include "support/printers.h"
#include "support/scopedsettings.h"
#include "transforms/catalogue.h"
#include "transforms/frame/transform.h"
#include "transforms/options/parameter.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <gtest/gtest.h>

// The help pages of the transforms: each kind has one, it is of the common form, names the options as the program does,
// and its worked example is what the transform gives. With QUILLMERE_RECORD=1 set, what the transforms give is written
// into the pages, for review.

namespace {

constexpr int presentVersion = 86;

QString pagePath(const CatalogueRow &row)
{
    return QStringLiteral(HELP_PAGES "/transforms/%1.md").arg(QLatin1String(row.typeName));
}

QString quoted(QString cell)
{
    return u'"' + cell.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

/// The table as text that an input reads without changing a cell.
QString pastedText(const MarkdownTable &table)
{
    QString text;
    for (const QStringList &cells : QVector<QStringList>{table.header} + table.rows) {
        QStringList quotedCells;
        std::transform(cells.cbegin(), cells.cend(), std::back_inserter(quotedCells), quoted);
        text += quotedCells.join(u',') + u'\n';
    }
    return text;
}

InputNode *addInput(GraphScene &scene, const MarkdownTable &table)
{
    InputOptions options;
    options.medium = Medium::Clipboard;
    options.text = pastedText(table);
    options.delimiter = DelimiterKind::Comma;
    options.headerMode = InputOptions::FirstRowIsHeader;
    options.trim = false;
    options.simplify = false;
    options.ignoreEmptyRows = false;
    auto *input = new InputNode(options);
    const int rowHeight = 200;
    scene.insertNode(input, QPointF(0, rowHeight * scene.nodes().size()));
    input->process(false, false);
    return input;
}

MarkdownTable tableOf(const Dataset &dataset)
{
    MarkdownTable table;
    table.header = dataset.header();
    for (int row = 0; row < dataset.rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < dataset.columnCount(); ++column) {
            cells.append(dataset.value(RowIndex(row), ColumnIndex(column)));
        }
        table.rows.append(cells);
    }
    return table;
}

QStringList choicesOf(const Transform &transform)
{
    QStringList choices;
    for (const Parameter *parameter : transform.parameters()) {
        choices += parameter->choices();
    }
    return choices;
}

/// The options in the words of the item's details. Labels of choices that line up by blanks stand with single ones.
MarkdownTable optionTable(const TransformNode &node)
{
    MarkdownTable table;
    const QStringList choices = choicesOf(*node.transform());
    for (const InfoRow &row : node.optionRows()) {
        if (!row.second.isEmpty()) {
            table.header = QStringList{QStringLiteral("Option"), QStringLiteral("Value")};
            table.rows.append(
                {row.first.trimmed(), choices.contains(row.second) ? row.second.simplified() : row.second});
        }
    }
    return table;
}

/// Runs the kind as a new item below the page's inputs with the page's options.
ExampleOutcome outcomeOf(const CatalogueRow &row, const ExamplePage &page)
{
    GraphScene scene;
    scene.setAutoRunOn(false);
    auto *node = new TransformNode(row.create());
    QList<DataSource *> sources;
    for (const MarkdownTable &table : page.inputs()) {
        sources.append(addInput(scene, table));
    }
    scene.insertNode(node, QPointF(200, 0));
    for (DataSource *source : sources) {
        scene.insertConnection(static_cast<InputNode *>(source), node);
    }
    node->transform()->createParameters(sources, true);
    for (const auto &option : page.storedOptions()) {
        Parameter *parameter = node->transform()->parameter(option.first);
        if (!parameter) {
            ADD_FAILURE() << "no option " << option.first.toStdString();
            continue;
        }
        parameter->setDeferredText(option.second, presentVersion);
    }
    scene.runTransforms(RunMode::Everything, true);
    const QStringList warnings = node->warnings().join(u'\n').split(u'\n', Qt::SkipEmptyParts);
    return {optionTable(*node), tableOf(node->datasetConst()), warnings};
}

/// The words in bold at the start of the points of a list, with or without a comma between several.
QStringList labelsToldOf(const QStringList &lines)
{
    static const QRegularExpression point(QStringLiteral("^- (?:\\*\\*[^*]+\\*\\*(?:, | and )?)+"));
    static const QRegularExpression label(QStringLiteral("\\*\\*([^*]+)\\*\\*"));
    QStringList found;
    for (const QString &line : lines) {
        for (auto matches = label.globalMatch(point.match(line).captured()); matches.hasNext();) {
            found.append(matches.next().captured(1));
        }
    }
    return found;
}

/// The words in italics at the start of the points of lists within lists.
QStringList choicesToldOf(const QStringList &lines)
{
    static const QRegularExpression choice(QStringLiteral("^  - \\*([^*]+)\\*"));
    QStringList found;
    for (const QString &line : lines) {
        const QRegularExpressionMatch match = choice.match(line);
        if (match.hasMatch()) {
            found.append(match.captured(1));
        }
    }
    return found;
}

QStringList labelsOf(const Transform &transform)
{
    QStringList labels;
    for (const Parameter *parameter : transform.parameters()) {
        if (parameter->kind() != Parameter::Label) {
            labels.append(parameter->label().trimmed());
        }
    }
    labels.removeDuplicates();
    return labels;
}

QStringList sorted(QStringList texts)
{
    texts.sort();
    return texts;
}

} // namespace

TEST(HelpPages, EveryKindHasAPageOfTheCommonForm)
{
    const QStringList headings{
        QStringLiteral("Options"), QStringLiteral("Example"), QStringLiteral("Hints"), QStringLiteral("See also")};
    for (const CatalogueRow &row : Catalogue::rows()) {
        SCOPED_TRACE(row.typeName);
        const ExamplePage page(pagePath(row));
        const std::unique_ptr<Transform> transform(row.create());
        EXPECT_EQ(page.title(), transform->displayName());
        EXPECT_EQ(page.headings(), headings);
        EXPECT_FALSE(page.hasEmptyCells());
        EXPECT_EQ(page.unexplainedSigns(), QString());
        for (const QString &link : page.links()) {
            EXPECT_TRUE(QFileInfo::exists(QFileInfo(pagePath(row)).path() + u'/' + link)) << qPrintable(link);
        }
        EXPECT_FALSE(page.section(headings.last()).filter(QStringLiteral("](")).isEmpty()) << "links to others";
    }
}

TEST(HelpPages, OptionsAreToldOfByTheLabelsAndChoicesOfTheProgram)
{
    for (const CatalogueRow &row : Catalogue::rows()) {
        SCOPED_TRACE(row.typeName);
        const QStringList lines = ExamplePage(pagePath(row)).section(QStringLiteral("Options"));
        const std::unique_ptr<Transform> transform(row.create());
        transform->createParameters({}, false);
        EXPECT_EQ(sorted(labelsToldOf(lines)), sorted(labelsOf(*transform)));
        const QStringList choices = choicesOf(*transform);
        for (const QString &choice : choicesToldOf(lines)) {
            EXPECT_TRUE(choices.contains(choice)) << "no choice " << qPrintable(choice);
        }
    }
}

TEST(HelpPages, ExamplesGiveWhatThePagesSay)
{
    const ScopedSettings settings;
    const bool isRecording = qEnvironmentVariableIsSet("QUILLMERE_RECORD");
    for (const CatalogueRow &row : Catalogue::rows()) {
        SCOPED_TRACE(row.typeName);
        ExamplePage page(pagePath(row));
        EXPECT_FALSE(page.inputs().isEmpty());
        const ExampleOutcome found = outcomeOf(row, page);
        if (isRecording && !page.inputs().isEmpty()) {
            EXPECT_TRUE(page.record(found));
        }
        const ExampleOutcome told = page.outcome();
        EXPECT_EQ(told.options.toLines(), found.options.toLines());
        EXPECT_EQ(told.warnings, found.warnings);
        if (page.hasOnlyShape()) {
            EXPECT_TRUE(told.result.hasShapeOf(found.result)) << qPrintable(found.result.toLines().join(u'\n'));
        } else {
            EXPECT_EQ(told.result.toLines(), found.result.toLines());
        }
    }
}
