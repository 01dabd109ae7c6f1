#include "panes/editors/parameterwidgets.h"

#include "graph/transformnode.h"
#include "panes/editors/parameterwidget.h"
#include "support/fakesource.h"
#include "support/grid.h"
#include "support/scopedsettings.h"
#include "transforms/catalogue.h"
#include "transforms/frame/transform.h"
#include "transforms/options/parameter.h"

#include <QSignalSpy>
#include <QWidget>
#include <gtest/gtest.h>

namespace {

/// Items of every kind with options of their own, bound to two tables.
class Catalogued
{
public:
    explicit Catalogued(const CatalogueRow &row)
        : m_node(row.create())
    {
        m_node.transform()->createParameters({&m_top, &m_bottom}, true);
    }

    TransformNode &node() { return m_node; }
    const QList<Parameter *> &parameters() { return m_node.transform()->parameters(); }

private:
    ScopedSettings m_settings;
    FakeSource m_top{grid({"id|name|day", "1|Ann|2024-01-02", "2|Bob|2024-02-03"}), 1};
    FakeSource m_bottom{grid({"id|city", "1|Rome"}), 2};
    TransformNode m_node;
};

} // namespace

TEST(ParameterWidgets, EveryOptionOfEveryKindHasAnEditorThatGivesItsValueBack)
{
    for (const CatalogueRow &row : Catalogue::rows()) {
        SCOPED_TRACE(row.typeName);
        Catalogued item(row);
        for (Parameter *parameter : item.parameters()) {
            SCOPED_TRACE(parameter->name().toStdString());
            const QVariant before = parameter->value();
            const QString stored = parameter->toDocumentText();
            const std::unique_ptr<QWidget> widget(ParameterWidgets::make(*parameter, item.node()));
            ASSERT_TRUE(widget);
            auto *editor = dynamic_cast<ParameterWidget *>(widget.get());
            ASSERT_TRUE(editor);
            QSignalSpy edits(widget.get(), SIGNAL(parameterValueChanged(bool)));
            ASSERT_TRUE(edits.isValid());
            EXPECT_EQ(editor->name(), parameter->name());
            EXPECT_FALSE(widget->accessibleName().isEmpty());
            editor->refresh();
            if (parameter->kind() != Parameter::Label) {
                EXPECT_EQ(editor->value(), before);
            }
            EXPECT_EQ(parameter->toDocumentText(), stored);
            EXPECT_EQ(edits.count(), 0);
        }
    }
}

TEST(ParameterWidgets, EditorsLiveThroughTablesThatComeAndGo)
{
    for (const CatalogueRow &row : Catalogue::rows()) {
        SCOPED_TRACE(row.typeName);
        Catalogued item(row);
        for (Parameter *parameter : item.parameters()) {
            SCOPED_TRACE(parameter->name().toStdString());
            const std::unique_ptr<QWidget> widget(ParameterWidgets::make(*parameter, item.node()));
            auto *editor = dynamic_cast<ParameterWidget *>(widget.get());
            const QVariant before = parameter->value();
            FakeSource other(grid({"a|b|c|d", "1|2|3|4"}), 9);
            for (DataSource *source : {static_cast<DataSource *>(nullptr), static_cast<DataSource *>(&other)}) {
                if (parameter->dependsOnColumns()) {
                    parameter->setNode(source);
                }
                editor->refresh();
                if (parameter->kind() != Parameter::Label) {
                    EXPECT_EQ(editor->value(), before) << "columns that have gone stay chosen";
                }
            }
            parameter->setNode(nullptr);
        }
    }
}
