#include "panes/dialogs/inputfromfolderdialog.h"

#include "data/values.h"
#include "inputs/folderlisting.h"
#include "panes/dialogs/helphook.h"
#include "panes/dialogs/prompts.h"
#include "panes/icons.h"
#include "settings/filetypes.h"
#include "settings/settings.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>
#include <QTableWidget>
#include <QToolButton>

namespace {

enum Column { Folder, FileName, SheetNames, Size, Created, Modified, ReadAccess, ColumnCount };

constexpr QSize firstSize(820, 560);
constexpr int firstWidths[ColumnCount] = {220, 150, 120, 90, 140, 140, 100};
constexpr int messageLines = 4;

QToolButton *makeButton(const QString &text, const char *icon)
{
    auto *button = new QToolButton;
    button->setText(text);
    button->setIcon(Icons::icon(QString::fromLatin1(icon)));
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    return button;
}

QString timeText(const QDateTime &time)
{
    return time.isValid() ? QLocale().toString(time, QLocale::ShortFormat) : QString();
}

} // namespace

InputFromFolderDialog::InputFromFolderDialog(const FolderInput &source, Prompts &prompts, QWidget *parent)
    : QDialog(parent)
    , m_prompts(prompts)
{
    setWindowTitle(QStringLiteral("Folder To Input"));
    HelpHook::setHelpPage(*this, QStringLiteral("Input_data#from-a-folder"));
    makeFields(source);
    makeButtons();
    arrange();
    if (!restoreGeometry(Settings::current().inputFromMultipleFilesWindowGeometry())) {
        resize(firstSize);
    }
    const auto edited = [this] { onEdited(); };
    connect(m_folder, &QLineEdit::textChanged, this, edited);
    connect(m_recurse, &QCheckBox::toggled, this, edited);
    connect(m_fileMatch, &QLineEdit::textChanged, this, edited);
    connect(m_sheetMatch, &QLineEdit::textChanged, this, edited);
    connect(m_type, QOverload<int>::of(&QComboBox::currentIndexChanged), this, edited);
    onEdited();
    m_fileMatch->setFocus();
}

InputFromFolderDialog::~InputFromFolderDialog()
{
    Settings::current().setInputFromMultipleFilesWindowGeometry(saveGeometry());
}

void InputFromFolderDialog::makeFields(const FolderInput &source)
{
    m_folder = new QLineEdit(QDir::toNativeSeparators(source.folder));
    m_folder->setToolTip(QStringLiteral("The folder to match files in. Cannot include wildcards."));
    m_browse = makeButton(QStringLiteral("Browse..."), "folder-open");
    m_browse->setToolTip(QStringLiteral("Click to browse to a different folder."));
    m_recurse = new QCheckBox(QStringLiteral("and &sub-folders"));
    m_recurse->setToolTip(QStringLiteral("Check to recurse into sub-folders."));
    m_recurse->setChecked(source.recurse);
    const QString wildcards = QStringLiteral(
        "'*' stands for any characters and '?' for any one, in upper or lower case. E.g. '%1'.");
    m_fileMatch = new QLineEdit(source.fileMatch);
    m_fileMatch->setToolTip(wildcards.arg(QStringLiteral("sales*.csv")));
    m_sheetMatch = new QLineEdit(source.sheetMatch);
    m_sheetMatch->setToolTip(wildcards.arg(QStringLiteral("2024*")));
    m_type = new QComboBox;
    m_type->setToolTip(QStringLiteral("Choose a file type."));
    for (const int type : FileType::inputTypes()) {
        m_type->addItem(FileType::label(type), type);
    }
    m_type->setCurrentIndex(qMax(0, m_type->findData(InputOptions::forFolder(source, FileType::None).fileType)));
}

void InputFromFolderDialog::makeButtons()
{
    m_list = makeButton(QStringLiteral("&List"), "view-refresh");
    m_stop = makeButton(QStringLiteral("S&top"), "process-stop");
    m_stop->setToolTip(QStringLiteral("Click to stop listing."));
    m_copy = makeButton(QStringLiteral("&Copy"), "edit-copy");
    m_copy->setToolTip(QStringLiteral("Click to copy the list to the clipboard."));
    m_table = new QTableWidget(0, ColumnCount);
    m_table->setAccessibleName(QStringLiteral("Matching files"));
    m_table->setHorizontalHeaderLabels({QStringLiteral("Folder"), QStringLiteral("File name"),
        QStringLiteral("Sheet names"), QStringLiteral("Size (KB)"), QStringLiteral("Created"),
        QStringLiteral("Modified"), QStringLiteral("Read access")});
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setTextElideMode(Qt::ElideMiddle);
    m_table->setTabKeyNavigation(false);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setStretchLastSection(true);
    for (int column = 0; column < ColumnCount; ++column) {
        m_table->setColumnWidth(column, firstWidths[column]);
    }
    m_summary = new QLabel;
    m_summary->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_messages = new QPlainTextEdit;
    m_messages->setReadOnly(true);
    m_messages->setAccessibleName(QStringLiteral("Messages"));
    m_messages->setMaximumHeight(m_messages->fontMetrics().lineSpacing() * (messageLines + 1));
    connect(m_browse, &QToolButton::clicked, this, &InputFromFolderDialog::onBrowse);
    connect(m_list, &QToolButton::clicked, this, &InputFromFolderDialog::onList);
    connect(m_stop, &QToolButton::clicked, this, [this] { m_stopRequested = true; });
    connect(m_copy, &QToolButton::clicked, this, &InputFromFolderDialog::onCopy);
}

void InputFromFolderDialog::arrange()
{
    auto *grid = new QGridLayout(this);
    const auto addRow = [grid](int row, const char *text, QWidget *field) {
        auto *label = new QLabel(QString::fromLatin1(text));
        label->setBuddy(field);
        grid->addWidget(label, row, 0);
        grid->addWidget(field, row, 1);
    };
    addRow(0, "&Folder:", m_folder);
    grid->addWidget(m_browse, 0, 2);
    grid->addWidget(m_recurse, 0, 3);
    addRow(1, "&Matching files:", m_fileMatch);
    addRow(2, "Matching s&heets:", m_sheetMatch);
    addRow(3, "File t&ype:", m_type);
    auto *buttons = new QHBoxLayout;
    for (QToolButton *button : {m_list, m_stop, m_copy}) {
        buttons->addWidget(button);
    }
    buttons->addWidget(m_summary, 1);
    grid->addLayout(buttons, 4, 0, 1, 4);
    grid->addWidget(m_table, 5, 0, 1, 4);
    grid->addWidget(m_messages, 6, 0, 1, 4);
    auto *box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    grid->addWidget(box, 7, 0, 1, 4);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(5, 1);
    connect(box, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(box, &QDialogButtonBox::rejected, this, &InputFromFolderDialog::reject);
}

FolderInput InputFromFolderDialog::source() const
{
    FolderInput source;
    source.folder = QDir::fromNativeSeparators(m_folder->text());
    source.fileMatch = m_fileMatch->text();
    source.sheetMatch = m_sheetMatch->text();
    source.recurse = m_recurse->isChecked();
    return source;
}

int InputFromFolderDialog::fileType() const
{
    return m_type->currentData().toInt();
}

void InputFromFolderDialog::onEdited()
{
    m_stopRequested = true;
    m_isEdited = true;
    const bool isExcel = FileType::isExcel(fileType());
    m_sheetMatch->setEnabled(isExcel);
    m_list->setToolTip(
        isExcel ? QStringLiteral("Click to list all currently matching Excel sheets.\nUseful for checking matches.")
                : QStringLiteral("Click to list all currently matching files.\nUseful for checking matches."));
    m_table->setColumnHidden(SheetNames, !isExcel);
    m_table->setRowCount(0);
    m_summary->clear();
    setListing(m_isListing);
    m_messages->setPlainText(FolderListing(source(), fileType()).checks().join(QLatin1Char('\n')));
    m_messages->setVisible(!m_messages->toPlainText().isEmpty());
}

void InputFromFolderDialog::onBrowse()
{
    const QString folder = m_prompts.openFolder({QStringLiteral("Select folder"), source().folder, QString()});
    if (!folder.isEmpty()) {
        m_folder->setText(QDir::toNativeSeparators(folder));
    }
}

void InputFromFolderDialog::setListing(bool on)
{
    m_isListing = on;
    m_list->setEnabled(!on);
    m_stop->setEnabled(on);
    m_copy->setEnabled(!on && m_table->rowCount() > 0);
}

void InputFromFolderDialog::onList()
{
    FolderListing listing(source(), fileType());
    m_stopRequested = false;
    m_isEdited = false;
    setListing(true);
    listing.run([this] {
        QCoreApplication::processEvents();
        return !m_stopRequested;
    });
    setListing(false);
    // After an edit in the meantime this is the list of something else.
    if (!m_isEdited) {
        showListing(listing);
    }
}

void InputFromFolderDialog::showListing(const FolderListing &listing)
{
    m_table->setRowCount(listing.rows().size());
    for (int row = 0; row < listing.rows().size(); ++row) {
        const FolderListingRow &file = listing.rows().at(row);
        const QString texts[ColumnCount] = {file.folder, file.name, file.sheets.join(QStringLiteral(", ")),
            formatInteger(file.kilobytes(), true), timeText(file.created), timeText(file.modified),
            QStringLiteral("Yes")};
        for (int column = 0; column < ColumnCount; ++column) {
            auto *item = new QTableWidgetItem(texts[column]);
            item->setToolTip(texts[column]);
            if (column == Size) {
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            }
            m_table->setItem(row, column, item);
        }
    }
    m_summary->setText(listing.summary());
    m_messages->setPlainText((listing.checks() + listing.messages()).join(QLatin1Char('\n')));
    m_messages->setVisible(!m_messages->toPlainText().isEmpty());
    m_copy->setEnabled(m_table->rowCount() > 0);
}

void InputFromFolderDialog::onCopy()
{
    QStringList lines;
    for (int row = -1; row < m_table->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < ColumnCount; ++column) {
            if (!m_table->isColumnHidden(column)) {
                cells.append((row < 0 ? m_table->horizontalHeaderItem(column) : m_table->item(row, column))->text());
            }
        }
        lines.append(cells.join(QLatin1Char('\t')));
    }
    QApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

void InputFromFolderDialog::reject()
{
    m_stopRequested = true;
    QDialog::reject();
}
