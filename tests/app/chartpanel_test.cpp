#include "app/boxanswers.h"
#include "charts/chartitemwidget.h"
#include "charts/chartnode.h"
#include "charts/chartview.h"
#include "charts/chartwidget.h"
#include "graph/graphscene.h"
#include "inputnode/inputnode.h"
#include "panes/items/panelstate.h"
#include "panes/widgets/columnslistwidget.h"
#include "panes/widgets/singlecolumnfilteredwidget.h"
#include "support/printers.h"
#include "support/scopedsettings.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>
#include <gtest/gtest.h>

// The panel of a chart, driven by keys and the mouse.

namespace {

class ChartPanel : public testing::Test
{
protected:
    void SetUp() override
    {
        QFile file(m_folder.filePath(QStringLiteral("in.csv")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("month,north,south\nJan,1,2\nFeb,3,4\nMar,5,6\n");
        file.close();
        InputOptions in;
        in.path = file.fileName();
        auto *source = new InputNode(in);
        m_chart = new ChartNode;
        m_scene.insertNode(source, {});
        m_scene.insertNode(m_chart, {});
        m_scene.insertConnection(source, m_chart);
        m_scene.setAutoRunOn(false);
        m_chart->setStoredColumns(QStringLiteral("1*0"), QStringLiteral("2*0\x1f"
                                                                        "3*0"));
        m_state.prompts = &m_prompts;
    }
    void show(const ChartOptions &options)
    {
        m_chart->setOptions(options);
        m_chart->setState(NodeState::NeedsProcessing, true);
        m_scene.runTransforms(RunMode::Everything, true);
        m_panel = std::make_unique<ChartItemWidget>(*m_chart);
        m_panel->setPanelState(m_state);
        m_panel->resize(500, 900);
        m_panel->show();
        m_panel->refresh();
    }
    /// All that has conditions applies, but for the kind of the file.
    static ChartOptions everything(int imageType)
    {
        ChartOptions options;
        options.type = ChartChoice::Line;
        options.layout = ChartChoice::Faceted;
        options.titleOption = options.x.titleOption = options.y.titleOption = ChartChoice::CustomTitle;
        options.x.customMinimum = options.x.customMaximum = true;
        options.y.customMinimum = options.y.customMaximum = true;
        options.showLineDataPoints = true;
        options.pointSizeOption = 1;
        options.writeFile = true;
        options.imageType = imageType;
        return options;
    }
    /// The tabs of the options.
    QTabWidget &pages() const
    {
        const QList<QTabWidget *> all = m_panel->findChildren<QTabWidget *>();
        return *all.at(all.first()->tabText(0) == QLatin1String("Configure") ? 0 : 1);
    }
    template<class Widget>
    Widget *editor(const QByteArray &key) const
    {
        return m_panel->findChild<Widget *>(QString::fromLatin1(key));
    }
    /// Changes an option as a person would; false when there is nothing to change it with.
    bool edit(const QByteArray &key) const
    {
        auto *widget = editor<QWidget>(key);
        if (!widget || widget->isHidden()) {
            return false;
        }
        if (auto *box = qobject_cast<QCheckBox *>(widget)) {
            box->click();
        } else if (auto *combo = qobject_cast<QComboBox *>(widget)) {
            QTest::keyClick(combo, combo->currentIndex() + 1 < combo->count() ? Qt::Key_Down : Qt::Key_Up);
        } else if (auto *spin = qobject_cast<QAbstractSpinBox *>(widget)) {
            QTest::keyClick(spin, key == "chart_opacity" ? Qt::Key_Down : Qt::Key_Up);
        } else if (auto *line = qobject_cast<QLineEdit *>(widget)) {
            QTest::keyClicks(line, QStringLiteral("z"));
        } else {
            return false;
        }
        return true;
    }
    QVariant stored(const QByteArray &key) const
    {
        for (const OptionField<ChartOptions> &field : ChartOptions::fields()) {
            if (field.documentKey == key) {
                return field.value(m_chart->options());
            }
        }
        return {};
    }

    const ScopedSettings m_settings;
    QTemporaryDir m_folder;
    GraphScene m_scene;
    ScriptedPrompts m_prompts;
    PanelState m_state;
    ChartNode *m_chart = nullptr;
    std::unique_ptr<ChartItemWidget> m_panel;
};

} // namespace

TEST_F(ChartPanel, EachOptionIsChangedInItsTab)
{
    for (const int imageType : {ChartChoice::Png, ChartChoice::Pdf}) {
        for (const OptionField<ChartOptions> &field : ChartOptions::fields()) {
            const QByteArray key = field.documentKey;
            const bool isOfOtherKind = imageType == ChartChoice::Pdf
                                           ? key.startsWith("chart_image_") && !key.endsWith("type")
                                           : key.startsWith("chart_pdf_");
            if (isOfOtherKind || key == "path") {
                continue;
            }
            SCOPED_TRACE(key.toStdString());
            show(everything(imageType));
            const QVariant before = stored(key);
            EXPECT_TRUE(edit(key));
            EXPECT_NE(stored(key), before);
            EXPECT_EQ(m_chart->state(), NodeState::NeedsProcessing) << "it has to be drawn anew";
            const QWidget *page = editor<QWidget>(key);
            while (page && pages().indexOf(const_cast<QWidget *>(page)) < 0) {
                page = page->parentWidget();
            }
            ASSERT_TRUE(page);
            EXPECT_EQ(pages().tabText(pages().indexOf(const_cast<QWidget *>(page))), field.tab);
        }
    }
}

TEST_F(ChartPanel, TabsSayWhereNothingApplies)
{
    ChartOptions options;
    options.type = ChartChoice::Pie;
    show(options);
    QStringList titles;
    QStringList said;
    for (int tab = 0; tab < pages().count(); ++tab) {
        titles.append(pages().tabText(tab));
        for (const QLabel *label : pages().widget(tab)->findChildren<QLabel *>()) {
            if (label->text().startsWith(QLatin1String("No ")) && !label->isHidden()) {
                said.append(label->text());
            }
        }
    }
    EXPECT_EQ(titles, (QStringList{"Configure", "General", "X Axis", "Y Axis", "Series", "Output"}));
    EXPECT_EQ(said, (QStringList{"No X axis options for this chart type", "No Y axis options for this chart type"}));
}

TEST_F(ChartPanel, ColumnsAreChosenFromTheInput)
{
    ChartOptions options;
    options.type = ChartChoice::Line;
    show(options);
    auto *x = m_panel->findChild<SingleColumnFilteredWidget *>();
    EXPECT_EQ(x->currentText(), "month");
    x->setCurrentIndex(x->findText(QStringLiteral("north")));
    EXPECT_EQ(m_chart->storedXColumn().section('*', 0, 0), "2");
    auto *y = m_panel->findChild<ColumnsListWidget *>();
    const QModelIndex south = y->model()->index(2, 0);
    y->setCurrentIndex(south);
    QTest::keyClick(y, Qt::Key_Space);
    EXPECT_EQ(m_chart->columns().y().size(), 1);
}

TEST_F(ChartPanel, ShowsThePictureAndCopiesIt)
{
    ChartOptions options;
    options.type = ChartChoice::Line;
    show(options);
    EXPECT_EQ(m_panel->chart().viewCount(), 1);
    EXPECT_EQ(m_panel->chart().view(0)->message(), "");
    for (QToolButton *button : m_panel->findChildren<QToolButton *>()) {
        if (button->toolTip() == QLatin1String("Copy the chart image to the clipboard.")) {
            QTest::mouseClick(button, Qt::LeftButton);
        }
    }
    EXPECT_TRUE(QApplication::clipboard()->mimeData()->hasImage());
    QApplication::clipboard()->clear();
    m_chart->setState(NodeState::NeedsProcessing, true);
    show(ChartOptions());
    EXPECT_EQ(m_panel->chart().view(0)->message(), "Select a chart type");
}

TEST_F(ChartPanel, FileNameAndTypeFollowEachOther)
{
    ChartOptions options;
    options.type = ChartChoice::Line;
    options.writeFile = true;
    options.path = m_folder.filePath(QStringLiteral("plot.png"));
    show(options);
    {
        const BoxAnswers answers({"OK"});
        edit("chart_image_type");
        EXPECT_EQ(answers.texts(), QStringList("Change file extension to 'jpg'?"));
    }
    EXPECT_EQ(m_chart->options().path, m_folder.filePath(QStringLiteral("plot.jpg")));
    m_prompts.paths = QStringList{m_folder.filePath(QStringLiteral("other.pdf"))};
    const BoxAnswers answers({"OK"});
    for (QToolButton *button : m_panel->findChildren<QToolButton *>()) {
        if (button->accessibleName() == QLatin1String("Browse")) {
            QTest::mouseClick(button, Qt::LeftButton);
        }
    }
    EXPECT_EQ(answers.texts(), QStringList("Change file type to 'PDF'?"));
    EXPECT_EQ(m_chart->options().imageType, ChartChoice::Pdf);
}
