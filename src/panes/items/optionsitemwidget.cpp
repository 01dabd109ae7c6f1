#include "panes/items/optionsitemwidget.h"

#include "graph/node.h"
#include "panes/items/optionsform.h"

#include <QLineEdit>
#include <QVBoxLayout>

OptionsItemWidget::OptionsItemWidget(Node &item, std::unique_ptr<OptionSource> source, QWidget *parent)
    : DataItemWidget(item, parent)
    , m_form(new OptionsForm(std::move(source)))
{
    auto *area = new QWidget;
    auto *layout = new QVBoxLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_form);
    layout->addStretch(1);
    setOptionsArea(area);
    connect(m_form, &OptionsForm::optionChanged, this, [this] { onParameterValueChanged(true); });
    connect(m_form, &OptionsForm::processNow, this, &DataItemWidget::processNow);
    connect(m_form, &OptionsForm::userInteraction, this, &DataItemWidget::onUserInteraction);
    connect(m_form, &OptionsForm::browseClicked, this, &OptionsItemWidget::onBrowse);
}

QLineEdit *OptionsItemWidget::makeSheetLine(const QString &toolTip)
{
    m_sheet = new QLineEdit;
    m_sheet->setToolTip(toolTip);
    m_sheet->setAccessibleName(QStringLiteral("Sheet:"));
    connect(m_sheet, &QLineEdit::editingFinished, this,
        [this] { changeOption("worksheet", m_sheet->text(), QStringLiteral("Sheet")); });
    return m_sheet;
}

void OptionsItemWidget::addAliasRow()
{
    m_alias = new QLineEdit;
    m_alias->setToolTip(QStringLiteral("A name for this item, by which a command line can give it another file."));
    connect(m_alias, &QLineEdit::editingFinished, this, &OptionsItemWidget::onAliasEdited);
    m_form->addRow(QStringLiteral("Alias:"), m_alias);
}

void OptionsItemWidget::changeOption(const QByteArray &key, const QVariant &value, const QString &label)
{
    if (node() && m_form->source().setValue(key, value, label)) {
        onParameterValueChanged(true);
        refreshOptions();
    }
}

void OptionsItemWidget::onAliasEdited()
{
    if (node() && m_alias->text().trimmed() != node()->alias()) {
        const UndoStep step(*node(), QStringLiteral("'Alias' change"));
        node()->setAlias(m_alias->text());
        emit changeNeedsSave();
        refreshOptions();
    }
}

void OptionsItemWidget::takeTyped()
{
    DataItemWidget::takeTyped();
    onAliasEdited();
}

void OptionsItemWidget::refreshOptions()
{
    m_form->refresh();
    if (m_sheet && !m_sheet->hasFocus()) {
        m_sheet->setText(m_form->source().value("worksheet").toString());
    }
    if (!m_alias->hasFocus()) {
        m_alias->setText(node()->alias());
    }
}
