#include "panes/dialogs/filetypedialog.h"

#include "settings/filetypes.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

FileTypeDialog::FileTypeDialog(const QString &title, const QString &text, const QList<int> &types, int current,
    const QString &note, QWidget *parent)
    : QDialog(parent)
    , m_types(new QComboBox)
{
    constexpr int textWidth = 420;
    setWindowTitle(title);
    auto *layout = new QVBoxLayout(this);
    const auto addText = [&](const QString &line) {
        auto *label = new QLabel(line);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setMinimumWidth(textWidth);
        layout->addWidget(label);
        return label;
    };
    QLabel *label = addText(text);
    label->setBuddy(m_types);
    for (const int type : types) {
        m_types->addItem(FileType::label(type), type);
    }
    m_types->setCurrentIndex(qMax(0, m_types->findData(current)));
    m_types->setAccessibleName(QStringLiteral("File type"));
    layout->addWidget(m_types);
    if (!note.isEmpty()) {
        addText(note);
    }
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addSpacing(layout->spacing());
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    m_types->setFocus();
}

int FileTypeDialog::fileType() const
{
    return m_types->currentData().toInt();
}
