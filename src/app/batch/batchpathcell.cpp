#include "app/batch/batchpathcell.h"

#include "files/filesheet.h"
#include "panes/dialogs/prompts.h"

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolButton>

BatchPathCell::BatchPathCell(const BatchColumn &column, int row, const QString &text, Prompts &prompts)
    : m_column(column)
    , m_prompts(prompts)
    , m_edit(new QLineEdit(text))
    , m_button(new QToolButton)
{
    const QString name = QStringLiteral("%1, row %2").arg(column.header).arg(row + 1);
    m_edit->setAccessibleName(name);
    m_edit->installEventFilter(this);
    m_button->setText(QStringLiteral("..."));
    m_button->setToolTip(QStringLiteral("Browse..."));
    m_button->setAccessibleName(QStringLiteral("Browse for ") + name);
    m_button->setFocusPolicy(Qt::StrongFocus);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(2);
    layout->addWidget(m_edit);
    layout->addWidget(m_button);
    setFocusProxy(m_edit);
    setAutoFillBackground(true);
    connect(m_edit, &QLineEdit::textChanged, this, &BatchPathCell::textChanged);
    connect(m_button, &QToolButton::clicked, this, &BatchPathCell::onBrowse);
}

bool BatchPathCell::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn) {
        emit entered();
    }
    return QWidget::eventFilter(watched, event);
}

void BatchPathCell::onBrowse()
{
    const QString path = chosenPath();
    if (!path.isEmpty()) {
        m_edit->setText(QDir::toNativeSeparators(path));
    }
}

QString BatchPathCell::chosenPath() const
{
    const QString allFiles = QStringLiteral("All Files (*)");
    if (m_column.isFolder) {
        return m_prompts.openFolder({QStringLiteral("Select folder"), m_edit->text(), QString()});
    }
    if (m_column.kind == CommandLineItem::Input) {
        const QString folder = QFileInfo(splitFileSheet(m_edit->text()).file).path();
        return m_prompts.openFile({QStringLiteral("Select file"), folder, allFiles});
    }
    return m_prompts.saveFile({QStringLiteral("Select file"), m_edit->text(), allFiles, false});
}
