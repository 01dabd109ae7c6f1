#include "panes/actions/actionpanewidgets.h"

#include "panes/actions/panebutton.h"
#include "panes/actions/transformbutton.h"
#include "panes/actions/transformsearch.h"
#include "panes/icons.h"
#include "panes/widgets/delayedlineedit.h"
#include "settings/settings.h"
#include "transforms/frame/transform.h"

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <iterator>

namespace {

constexpr int lengthCount = static_cast<int>(std::size(TransformUsage::lengths));
/// Data of the first entry of those last used and of those most used.
constexpr int firstLastUsed = -5;
constexpr int firstMostUsed = -10;

QString keyText(const char *key)
{
    return QKeySequence(QString::fromLatin1(key)).toString(QKeySequence::NativeText);
}

QSet<QString> typeNames(const QList<Transform *> &prototypes)
{
    QSet<QString> names;
    for (const Transform *prototype : prototypes) {
        names.insert(prototype->typeName());
    }
    return names;
}

} // namespace

ActionPaneWidgets::ActionPaneWidgets(const QList<Transform *> &prototypes, QWidget *parent)
    : QWidget(parent)
    , m_usage(typeNames(prototypes))
    , m_category(new QComboBox)
    , m_keywords(new DelayedLineEdit)
    , m_advanced(new QCheckBox(QStringLiteral("show advanced")))
    , m_scroll(new QScrollArea)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(3);
    addInputs(*layout);
    layout->addSpacing(6);
    addFilters(*layout);
    addTransforms(*layout, prototypes);
    layout->addSpacing(6);
    addOutputs(*layout);
    updateUsedEntries();
    updateButtons();
}

PaneButton *ActionPaneWidgets::addButton(QVBoxLayout &layout, const char *text, const char *icon, const char *helpPage,
    const QString &tip, void (ActionPaneWidgets::*clicked)())
{
    auto *button = new PaneButton(QString::fromLatin1(text), QString::fromLatin1(helpPage));
    m_plainButtons.append({button, QString::fromLatin1(icon)});
    button->setIcon(Icons::icon(QString::fromLatin1(icon)));
    button->setToolTip(tip);
    connect(button, &QAbstractButton::clicked, this, clicked);
    layout.addWidget(button);
    return button;
}

void ActionPaneWidgets::addInputs(QVBoxLayout &layout)
{
    const QString formats = QStringLiteral(
        "\nCSV/Excel/fixed width/JSON/plain text/TSV/vCard/XML formats are supported.");
    m_fromFile = addButton(layout, "From File", "document-import", "Input_data",
        QStringLiteral("Input a dataset from a single file. (%1)").arg(keyText("Alt+I")) + formats,
        &ActionPaneWidgets::inputFileClicked);
    addButton(layout, "From Folder", "folder-open", "Input_data",
        QStringLiteral(
            "Input a dataset from multiple files in a folder.\nCan include sub-folders.\nAll files must be in "
            "the same format (e.g. all CSV)."),
        &ActionPaneWidgets::inputFolderClicked);
    addButton(layout, "From Clipboard", "input-clipboard", "Input_data",
        QStringLiteral("Input a dataset from the clipboard. (%1)").arg(keyText("Alt+Shift+I")) + formats,
        &ActionPaneWidgets::inputClipboardClicked);
}

void ActionPaneWidgets::addFilters(QVBoxLayout &layout)
{
    for (int category = Transform::All; category <= Transform::Other; ++category) {
        m_category->addItem(QStringLiteral("%1 transforms").arg(Transform::categoryName(category, false)), category);
    }
    m_category->setToolTip(QStringLiteral("Filter the type of transforms to display."));
    m_category->setAccessibleName(QStringLiteral("Transform category"));
    m_category->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_keywords->setPlaceholderText(QStringLiteral("Transform keywords"));
    m_keywords->setAccessibleName(m_keywords->placeholderText());
    m_keywords->setClearButtonEnabled(true);
    m_keywords->setToolTip(
        QStringLiteral("Type one or more keywords, separated by Spaces, to find the transform you want. (%1)")
            .arg(keyText("Ctrl+K")));
    m_keywords->installEventFilter(this);
    m_advanced->setToolTip(QStringLiteral("Check to show all available transforms, including the advanced ones."));
    m_advanced->setChecked(Settings::current().showAdvancedTransforms());
    for (QWidget *widget :
        {static_cast<QWidget *>(m_category), static_cast<QWidget *>(m_keywords), static_cast<QWidget *>(m_advanced)}) {
        layout.addWidget(widget);
    }
    connect(
        m_category, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &ActionPaneWidgets::onCategoryChanged);
    connect(m_advanced, &QCheckBox::toggled, this, &ActionPaneWidgets::onAdvancedChanged);
    connect(m_keywords, &DelayedLineEdit::delayedEditTextChanged, this, &ActionPaneWidgets::onMatchTextChanged);
    connect(m_keywords, &QLineEdit::returnPressed, this, &ActionPaneWidgets::addFound);
}

void ActionPaneWidgets::addTransforms(QVBoxLayout &layout, const QList<Transform *> &prototypes)
{
    auto *area = new QWidget;
    m_buttonLayout = new QVBoxLayout(area);
    m_buttonLayout->setContentsMargins(0, 0, 0, 0);
    m_buttonLayout->setSpacing(0);
    for (Transform *prototype : prototypes) {
        auto *button = new TransformButton(*prototype);
        button->installEventFilter(this);
        connect(button, &QAbstractButton::clicked, this, &ActionPaneWidgets::onTransformButtonClicked);
        connect(button, &TransformButton::hoverStatusChange, this, &ActionPaneWidgets::onHoverStatusChange);
        m_buttonLayout->addWidget(button);
        m_buttons.append(button);
    }
    m_buttonLayout->addStretch();
    m_scroll->setWidget(area);
    m_scroll->setWidgetResizable(true);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->setAccessibleName(QStringLiteral("Transforms"));
    layout.addWidget(m_scroll, 1);
}

void ActionPaneWidgets::addOutputs(QVBoxLayout &layout)
{
    m_toFile = addButton(layout, "To File", "document-export", "Output_data",
        QStringLiteral("Output a dataset to a file. (%1)\nCSV/Excel/HTML/JSON/Markdown/plain text/TSV/vCard/XML/YAML "
                       "formats are supported.\nSelect 1 Input/Transform item in the center pane and then click this "
                       "button to add an Output.")
            .arg(keyText("Alt+O")),
        &ActionPaneWidgets::outputFileClicked);
    m_toChart = addButton(layout, "To Chart", "chart", "Chart_data",
        QStringLiteral("Output a dataset to a chart. (%1)\nSelect 1 input/transform item in the center pane and then "
                       "click this button to add a chart.")
            .arg(keyText("Alt+C")),
        &ActionPaneWidgets::outputChartClicked);
    setCanOutput(false);
}

void ActionPaneWidgets::setCanOutput(bool can)
{
    m_toFile->setEnabled(can);
    m_toChart->setEnabled(can);
}

void ActionPaneWidgets::updateIcons()
{
    for (const auto &plain : qAsConst(m_plainButtons)) {
        plain.first->setIcon(Icons::icon(plain.second));
    }
    for (TransformButton *button : qAsConst(m_buttons)) {
        button->updateIcon();
    }
}

// What is shown

void ActionPaneWidgets::updateUsedEntries()
{
    const QVariant chosen = m_category->currentData();
    {
        const QSignalBlocker blocker(m_category);
        while (m_category->count() > Transform::Other + 1) {
            m_category->removeItem(m_category->count() - 1);
        }
        const auto add = [this](const QString &text, int first, int available) {
            for (int i = 0; i < lengthCount; ++i) {
                if (available >= TransformUsage::lengths[i]) {
                    m_category->addItem(text.arg(TransformUsage::lengths[i]), first + i);
                }
            }
        };
        add(QStringLiteral("%1 last used"), firstLastUsed, m_usage.recentCount());
        add(QStringLiteral("%1 most used"), firstMostUsed, m_usage.usedCount());
        m_category->setCurrentIndex(qMax(0, m_category->findData(chosen)));
    }
}

QList<TransformButton *> ActionPaneWidgets::chosenButtons() const
{
    const int chosen = m_category->currentData().toInt();
    QList<TransformButton *> buttons;
    if (chosen >= 0) {
        for (TransformButton *button : m_buttons) {
            if (chosen == Transform::All || button->prototype().category() == chosen) {
                buttons.append(button);
            }
        }
        return buttons;
    }
    const bool last = chosen >= firstLastUsed;
    const int length = TransformUsage::lengths[chosen - (last ? firstLastUsed : firstMostUsed)];
    for (const QString &name : last ? m_usage.lastUsed(length) : m_usage.mostUsed(length)) {
        for (TransformButton *button : m_buttons) {
            if (button->prototype().typeName() == name) {
                buttons.append(button);
            }
        }
    }
    return buttons;
}

void ActionPaneWidgets::updateButtons()
{
    QList<TransformButton *> chosen = chosenButtons();
    const bool searches = !TransformSearch::wordsOf(m_keywords->text()).isEmpty();
    const bool withAdvanced = m_advanced->isChecked();
    QVector<QSet<QString>> keywords;
    for (int i = chosen.size() - 1; i >= 0; --i) {
        if (!searches && !withAdvanced && chosen.at(i)->prototype().isAdvanced()) {
            chosen.removeAt(i);
        }
    }
    for (const TransformButton *button : qAsConst(chosen)) {
        keywords.append(button->prototype().keywords());
    }
    const QVector<bool> matches = TransformSearch::matches(keywords, m_keywords->text());
    QStringList shown;
    for (int i = 0; i < chosen.size(); ++i) {
        if (matches.at(i)) {
            shown.append(chosen.at(i)->prototype().typeName());
        }
    }
    if (shown == m_shown) {
        return;
    }
    m_shown = shown;
    QWidget &area = *m_scroll->widget();
    area.setUpdatesEnabled(false);
    for (TransformButton *button : qAsConst(m_buttons)) {
        button->setVisible(shown.contains(button->prototype().typeName()));
        button->setHiddenOtherwise(button->prototype().isAdvanced() && !withAdvanced, m_advanced->text());
    }
    // In the order of the entry, which is that of use for those used.
    order(chosen);
    area.setUpdatesEnabled(true);
}

void ActionPaneWidgets::order(const QList<TransformButton *> &buttons)
{
    QWidget *before = m_advanced;
    for (int i = 0; i < buttons.size(); ++i) {
        m_buttonLayout->insertWidget(i, buttons.at(i));
        setTabOrder(before, buttons.at(i));
        before = buttons.at(i);
    }
}

void ActionPaneWidgets::onAdvancedChanged()
{
    Settings::current().setShowAdvancedTransforms(m_advanced->isChecked());
    m_shown.clear(); // the tips change even where the same buttons show
    updateButtons();
}

QList<TransformButton *> ActionPaneWidgets::visibleButtons() const
{
    QList<TransformButton *> buttons;
    for (int i = 0; i < m_buttonLayout->count(); ++i) {
        auto *button = qobject_cast<TransformButton *>(m_buttonLayout->itemAt(i)->widget());
        if (button && m_shown.contains(button->prototype().typeName())) {
            buttons.append(button);
        }
    }
    return buttons;
}

// Adding

void ActionPaneWidgets::onTransformButtonClicked()
{
    auto *button = qobject_cast<TransformButton *>(sender());
    if (!button) {
        return;
    }
    emit addedTransform(&button->prototype());
    m_usage.record(button->prototype().typeName());
    updateUsedEntries();
    if (m_category->currentData().toInt() < 0) {
        updateButtons();
    }
}

void ActionPaneWidgets::onHoverStatusChange(bool hovered)
{
    if (const auto *button = qobject_cast<TransformButton *>(sender())) {
        emit highlightTransformNodes(hovered, button->prototype().typeId());
    }
}

void ActionPaneWidgets::addFound()
{
    m_keywords->flush();
    const QList<TransformButton *> buttons = visibleButtons();
    QStringList names;
    for (const TransformButton *button : buttons) {
        names.append(button->text());
    }
    const int best = TransformSearch::bestName(names, m_keywords->text());
    if (best >= 0) {
        buttons.at(best)->click();
    }
}

// Keyboard

bool ActionPaneWidgets::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn && watched != m_keywords) {
        emit scrollSoVisible(qobject_cast<QWidget *>(watched));
    }
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Down || key == Qt::Key_Up) {
            moveFocus(key == Qt::Key_Down ? 1 : -1);
            return true;
        }
        if (watched == m_keywords && key == Qt::Key_Escape && !m_keywords->text().isEmpty()) {
            m_keywords->clear();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void ActionPaneWidgets::moveFocus(int step)
{
    m_keywords->flush();
    const QList<TransformButton *> buttons = visibleButtons();
    const int present = buttons.indexOf(qobject_cast<TransformButton *>(focusWidget()));
    const int next = present + step;
    if (next < 0) {
        m_keywords->setFocus();
    } else if (next < buttons.size()) {
        buttons.at(next)->setFocus(Qt::TabFocusReason);
    }
}
