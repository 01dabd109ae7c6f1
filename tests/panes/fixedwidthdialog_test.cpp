#include "panes/fixedwidth/fixedwidthmanualdialog.h"
#include "panes/fixedwidth/fixedwidthpreviewwidget.h"
#include "settings/settings.h"
#include "support/printers.h"
#include "support/scopedsettings.h"

#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QtTest>
#include <gtest/gtest.h>

namespace {

class FixedWidthDialog : public testing::Test
{
protected:
    FixedWidthDialog()
        : m_dialog({4, 5, 3}, {"Ann Smith0012", "Bob Wu   34"})
    {
        m_dialog.show();
    }
    QTableWidget &table() const { return *m_dialog.findChild<QTableWidget *>(); }
    QPushButton &button(const char *text) const
    {
        for (QPushButton *button : m_dialog.findChildren<QPushButton *>()) {
            if (button->text().remove('&') == QLatin1String(text)) {
                return *button;
            }
        }
        ADD_FAILURE() << text;
        return *m_dialog.findChild<QPushButton *>();
    }
    void press(const char *text) const
    {
        EXPECT_TRUE(button(text).isEnabled()) << text;
        QTest::mouseClick(&button(text), Qt::LeftButton);
    }
    /// A click into the middle of the character at that position.
    void clickPreview(int position, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QWidget *view = m_dialog.findChild<FixedWidthPreviewWidget *>()->viewport();
        const double width = QFontMetricsF(view->font()).horizontalAdvance(QLatin1Char('0'));
        QTest::mouseClick(view, Qt::LeftButton, modifiers, QPoint(qRound(4 + (position + 0.5) * width), 10));
    }
    QList<int> selected() const
    {
        QList<int> rows;
        for (const QModelIndex &index : table().selectionModel()->selectedRows()) {
            rows.append(index.row());
        }
        std::sort(rows.begin(), rows.end());
        return rows;
    }
    /// The buttons that can be pressed.
    QStringList enabled() const
    {
        QStringList names;
        for (const char *name : {"Merge", "Split", "Insert Left", "Insert Right", "Delete", "OK"}) {
            if (button(name).isEnabled()) {
                names.append(QLatin1String(name));
            }
        }
        return names;
    }

    const ScopedSettings m_settings;
    FixedWidthManualDialog m_dialog;
};

} // namespace

TEST_F(FixedWidthDialog, ShowsWhereColumnsStartAndEnd)
{
    EXPECT_EQ(table().verticalHeaderItem(1)->text(), "Column 2");
    EXPECT_EQ(table().item(1, 0)->text(), "5");
    EXPECT_EQ(table().item(1, 1)->text(), "5");
    EXPECT_EQ(table().item(1, 2)->text(), "9");
    EXPECT_EQ(enabled(), QStringList{"OK"});
}

TEST_F(FixedWidthDialog, ButtonsEditWhatThePreviewSelects)
{
    clickPreview(5);
    EXPECT_EQ(selected(), QList<int>{1});
    EXPECT_EQ(enabled(), (QStringList{"Split", "Insert Left", "Insert Right", "Delete", "OK"}));
    press("Split");
    EXPECT_EQ(m_dialog.widths(), (QList<int>{4, 3, 2, 3}));
    EXPECT_EQ(selected(), (QList<int>{1, 2}));
    press("Merge");
    EXPECT_EQ(m_dialog.widths(), (QList<int>{4, 5, 3}));
    press("Insert Left");
    EXPECT_EQ(m_dialog.widths(), (QList<int>{4, 1, 5, 3}));
    clickPreview(0);
    clickPreview(4, Qt::ShiftModifier);
    EXPECT_EQ(selected(), (QList<int>{0, 1}));
    press("Delete");
    EXPECT_EQ(m_dialog.widths(), (QList<int>{5, 3}));
    clickPreview(6);
    press("Insert Right");
    EXPECT_EQ(m_dialog.widths(), (QList<int>{5, 3, 1}));
    EXPECT_TRUE(m_dialog.isWindowModified());
}

TEST_F(FixedWidthDialog, AWidthIsTyped)
{
    table().setCurrentCell(0, 0);
    QTest::keyClick(&table(), Qt::Key_1);
    auto *box = table().findChild<QSpinBox *>();
    ASSERT_TRUE(box);
    QTest::keyClicks(box, "2");
    QTest::keyClick(box, Qt::Key_Return);
    QCoreApplication::processEvents(); // the editor's value is taken in its own time
    EXPECT_EQ(m_dialog.widths(), (QList<int>{12, 5, 3}));
    EXPECT_EQ(table().item(2, 1)->text(), "18") << "what follows moves";
}

TEST_F(FixedWidthDialog, WithoutColumnsThereIsNothingToTake)
{
    table().selectAll();
    press("Delete");
    EXPECT_EQ(enabled(), QStringList());
    const QList<QLabel *> labels = m_dialog.findChildren<QLabel *>();
    EXPECT_TRUE(std::any_of(labels.begin(), labels.end(),
        [](const QLabel *label) { return label->text() == QLatin1String("Columns: 0"); }));
}

TEST_F(FixedWidthDialog, RemembersItsSize)
{
    m_dialog.resize(701, 502);
    QTest::keyClick(&m_dialog, Qt::Key_Escape);
    EXPECT_FALSE(Settings::current().fixedWidthWindowGeometry().isEmpty());
    FixedWidthManualDialog again({1}, {});
    EXPECT_EQ(again.size(), QSize(701, 502));
}
