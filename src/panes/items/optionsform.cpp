#include "panes/items/optionsform.h"

#include "files/encodings.h"
#include "panes/icons.h"
#include "panes/widgets/lineeditwithinsertcontrolchars.h"
#include "panes/widgets/realspinbox.h"
#include "panes/widgets/staricon.h"
#include "panes/widgets/wheelguard.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>

namespace {

constexpr int mostNumber = 999999999;
constexpr int leastCharacters = 6;
constexpr int characterWidth = 4; ///< of the box for one character, in characters

QHBoxLayout *rowLayout(QWidget *box)
{
    auto *layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    return layout;
}

} // namespace

OptionsForm::OptionsForm(std::unique_ptr<OptionSource> source, QWidget *parent)
    : QWidget(parent)
    , m_source(std::move(source))
    , m_grid(new QGridLayout(this))
{
    m_grid->setContentsMargins(0, 0, 4, 0);
    m_grid->setHorizontalSpacing(8);
    m_grid->setVerticalSpacing(4);
    m_grid->setColumnStretch(1, 1);
}

OptionsForm::~OptionsForm() = default;

QString OptionsForm::labelOf(const QByteArray &key) const
{
    QString label = m_source->info(key).label;
    for (const Field &field : m_fields) {
        if (label.isEmpty() && field.key == key && m_rows.at(field.row).label) {
            label = m_rows.at(field.row).label->text();
        }
    }
    return label.endsWith(QLatin1Char(':')) ? label.chopped(1) : label;
}

void OptionsForm::addRowWidgets(const QString &label, QWidget *box, std::function<bool()> shown)
{
    const int row = m_grid->rowCount();
    QLabel *caption = nullptr;
    if (!label.isEmpty()) {
        caption = new QLabel(label);
        m_grid->addWidget(caption, row, 0);
    }
    m_grid->addWidget(box, row, 1);
    m_rows.append({caption, box, std::move(shown)});
}

void OptionsForm::addRow(const QList<QByteArray> &keys, const QString &label)
{
    auto *box = new QWidget;
    QHBoxLayout *layout = rowLayout(box);
    QVector<Field> fields;
    bool stretches = false;
    QString caption = label;
    for (const QByteArray &key : keys) {
        const OptionInfo info = m_source->info(key);
        Field field{key, nullptr, {}, nullptr, m_rows.size()};
        field.editor = makeEditor(key, info, field);
        const bool isFlag = qobject_cast<QCheckBox *>(field.editor);
        if (caption.isEmpty() && !isFlag) {
            caption = info.label;
        }
        if (field.editor->accessibleName().isEmpty()) {
            field.editor->setAccessibleName(info.label.isEmpty() ? caption : info.label);
        }
        const bool wide = field.editor->sizePolicy().horizontalPolicy() == QSizePolicy::Expanding;
        stretches = stretches || wide;
        layout->addWidget(field.editor, wide ? 1 : 0);
        if (info.hasDefault) {
            field.saveDefault = makeDefaultButton(key, field.editor->accessibleName());
            layout->addWidget(field.saveDefault);
        }
        fields.append(field);
    }
    if (!stretches) {
        layout->addStretch(1);
    }
    addRowWidgets(caption, box, [this, keys] {
        return std::any_of(keys.begin(), keys.end(), [this](const QByteArray &key) { return m_source->applies(key); });
    });
    if (m_rows.last().label) {
        m_rows.last().label->setBuddy(fields.first().editor);
        m_rows.last().label->setToolTip(fields.first().editor->toolTip());
    }
    m_fields += fields;
}

void OptionsForm::addRow(const QString &label, QWidget *widget, std::function<bool()> shown)
{
    auto *box = new QWidget;
    rowLayout(box)->addWidget(widget);
    addRowWidgets(label, box, std::move(shown));
    if (m_rows.last().label) {
        m_rows.last().label->setBuddy(widget);
    }
    if (widget->accessibleName().isEmpty()) {
        widget->setAccessibleName(label);
    }
}

void OptionsForm::addToRow(QWidget *widget)
{
    m_rows.last().box->layout()->addWidget(widget);
}

QWidget *OptionsForm::makeEditor(const QByteArray &key, const OptionInfo &info, Field &field)
{
    const QVariant present = m_source->value(key);
    QWidget *editor = nullptr;
    if (info.editor == OptionEditor::Encoding) {
        editor = makeEncoding(key, field);
    } else if (info.editor == OptionEditor::Path) {
        editor = makePath(key, field);
    } else if (info.editor == OptionEditor::Choice) {
        editor = makeChoice(key, info, field);
    } else if (present.type() == QVariant::Bool) {
        editor = makeFlag(key, info, field);
    } else if (present.type() == QVariant::Int) {
        editor = makeNumber(key, info, field);
    } else if (present.type() == QVariant::Double) {
        editor = makeReal(key, field);
    } else {
        editor = makeText(key, info, field);
    }
    editor->setObjectName(QString::fromLatin1(key));
    editor->setToolTip(info.toolTip);
    return editor;
}

QWidget *OptionsForm::makeFlag(const QByteArray &key, const OptionInfo &info, Field &field)
{
    auto *box = new QCheckBox(info.label);
    field.show = [box](const QVariant &value) { box->setChecked(value.toBool()); };
    connect(box, &QCheckBox::toggled, this, [this, key](bool on) { store(key, on); });
    return box;
}

QWidget *OptionsForm::makeChoice(const QByteArray &key, const OptionInfo &info, Field &field)
{
    auto *box = new QComboBox;
    box->addItems(info.choices);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(leastCharacters);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    guardFromWheel(*box);
    const QList<int> numbers = info.choiceNumbers;
    field.show = [box, numbers](const QVariant &value) {
        box->setCurrentIndex(numbers.isEmpty() ? value.toInt() : numbers.indexOf(value.toInt()));
    };
    connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this, key, numbers](int index) {
        if (index >= 0) {
            store(key, numbers.isEmpty() ? index : numbers.at(index));
        }
    });
    return box;
}

QWidget *OptionsForm::makeNumber(const QByteArray &key, const OptionInfo &info, Field &field)
{
    auto *box = new QSpinBox;
    box->setRange(
        info.hasLimits ? qMax(0, info.lowest) : 0, info.hasLimits ? qMin(mostNumber, info.highest) : mostNumber);
    box->setGroupSeparatorShown(true);
    guardFromWheel(*box);
    field.show = [box](const QVariant &value) { box->setValue(value.toInt()); };
    connect(box, QOverload<int>::of(&QSpinBox::valueChanged), this, [this, key](int value) { store(key, value); });
    return box;
}

QWidget *OptionsForm::makeReal(const QByteArray &key, Field &field)
{
    constexpr double largest = 1e15;
    auto *box = new RealSpinBox;
    box->setRange(-largest, largest);
    field.show = [box](const QVariant &value) { box->setValue(value.toDouble()); };
    connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
        [this, key](double value) { store(key, value); });
    return box;
}

QWidget *OptionsForm::makeEncoding(const QByteArray &key, Field &field)
{
    auto *box = new QComboBox;
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(leastCharacters);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    guardFromWheel(*box);
    // Whoever can find the encoding out says so by starting with that.
    QStringList names = Encodings::commonFirst();
    if (m_source->info(key).initial == Encodings::automatic()) {
        names.prepend(Encodings::automatic());
    }
    box->addItems(names);
    field.show = [box](const QVariant &value) {
        const QString name = value.toString();
        if (box->findText(name) < 0) {
            box->addItem(name);
        }
        box->setCurrentIndex(box->findText(name));
    };
    connect(box, &QComboBox::currentTextChanged, this, [this, key](const QString &name) { store(key, name); });
    return box;
}

QWidget *OptionsForm::makeText(const QByteArray &key, const OptionInfo &, Field &field)
{
    auto *line = new LineEditWithInsertControlChars;
    const bool isCharacter = m_source->value(key).type() == QVariant::Char;
    if (isCharacter) {
        line->setMaxLength(1);
        line->setFixedWidth(characterWidth * fontMetrics().averageCharWidth() + 2 * characterWidth);
    }
    field.show = [line](const QVariant &value) {
        const QChar character = value.type() == QVariant::Char ? value.toChar() : QChar();
        const QString text = value.type() != QVariant::Char ? value.toString()
                             : character.isNull()           ? QString()
                                                            : QString(character);
        if (text != line->text()) {
            line->setText(text);
        }
    };
    connect(line, &QLineEdit::textChanged, this, [this, key](const QString &text) { store(key, text); });
    connect(line, &QLineEdit::returnPressed, this, &OptionsForm::processNow);
    connect(line, &QLineEdit::cursorPositionChanged, this, &OptionsForm::userInteraction);
    return line;
}

QWidget *OptionsForm::makePath(const QByteArray &key, Field &field)
{
    auto *box = new QWidget;
    auto *layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    auto *line = new QLineEdit;
    line->setAccessibleName(m_source->info(key).label);
    auto *browse = new QToolButton;
    browse->setIcon(Icons::icon(QStringLiteral("folder-open")));
    browse->setAutoRaise(true);
    browse->setAccessibleName(QStringLiteral("Browse"));
    browse->setToolTip(QStringLiteral("Browse for a file."));
    layout->addWidget(line, 1);
    layout->addWidget(browse);
    box->setFocusProxy(line);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    field.show = [line](const QVariant &value) {
        if (value.toString() != line->text()) {
            line->setText(value.toString());
        }
    };
    // A path that is half typed must neither be read nor be written to.
    connect(line, &QLineEdit::editingFinished, this, [this, key, line] { store(key, line->text()); });
    connect(line, &QLineEdit::returnPressed, this, [this, key, line] {
        store(key, line->text()); // before the run, which shows all values anew
        emit processNow();
    });
    connect(browse, &QToolButton::clicked, this, [this, key] { emit browseClicked(key); });
    return box;
}

QToolButton *OptionsForm::makeDefaultButton(const QByteArray &key, const QString &label)
{
    auto *button = new QToolButton;
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(QStringLiteral("Save '%1' as default").arg(label));
    connect(button, &QToolButton::clicked, this, [this, key] {
        m_source->isDefault(key) ? m_source->removeDefault(key) : m_source->saveDefault(key);
        refresh();
    });
    return button;
}

void OptionsForm::updateDefaultButton(const Field &field)
{
    const bool isDefault = m_source->isDefault(field.key);
    field.saveDefault->setIcon(starIcon(isDefault, *this));
    field.saveDefault->setToolTip(
        isDefault ? QStringLiteral("New items of this type start with this value. Click to forget it.")
                  : QStringLiteral("Save as default for new items of this type."));
}

void OptionsForm::store(const QByteArray &key, const QVariant &value)
{
    if (m_isStoring) {
        return; // a question about the value took the focus from its line, which stores its text then
    }
    const QScopedValueRollback<bool> storing(m_isStoring, true);
    if (m_source->setValue(key, value, labelOf(key))) {
        refresh();
        emit optionChanged(key);
    }
}

void OptionsForm::refresh()
{
    for (const Field &field : qAsConst(m_fields)) {
        const QSignalBlocker blocker(field.editor);
        field.show(m_source->value(field.key));
        const bool applies = m_source->applies(field.key);
        field.editor->setVisible(applies);
        if (field.saveDefault) {
            field.saveDefault->setVisible(applies);
            updateDefaultButton(field);
        }
    }
    for (const Row &row : qAsConst(m_rows)) {
        const bool shown = !row.shown || row.shown();
        row.box->setVisible(shown);
        if (row.label) {
            row.label->setVisible(shown);
        }
    }
}

QWidget *OptionsForm::editor(const QByteArray &key) const
{
    for (const Field &field : m_fields) {
        if (field.key == key) {
            return field.editor;
        }
    }
    return nullptr;
}
