#include "charts/chartitemwidget.h"

#include "charts/chartnode.h"
#include "charts/chartwidget.h"
#include "graph/undostep.h"
#include "panes/dialogs/prompts.h"
#include "panes/icons.h"
#include "panes/items/itemtoolrow.h"
#include "panes/items/optionsform.h"
#include "panes/items/panelfactory.h"
#include "panes/widgets/multiplecolumnswidget.h"
#include "panes/widgets/singlecolumnfilteredwidget.h"
#include "panes/widgets/tips.h"
#include "settings/settings.h"

#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

using Source = DeclaredOptions<ChartOptions>;

const char *extensionOf(int imageType)
{
    static const char *const extensions[] = {"png", "jpg", "pdf"};
    return extensions[imageType];
}

/// The image type of a file's extension, or -1.
int typeOf(const QString &path)
{
    const QString extension = QFileInfo(path).suffix().toLower();
    return extension == QLatin1String("jpeg")
               ? ChartChoice::Jpeg
               : QStringList{QStringLiteral("png"), QStringLiteral("jpg"), QStringLiteral("pdf")}.indexOf(extension);
}

/// The rows of options that both axes have; `letter` is "x" or "y".
QList<QList<QByteArray>> axisRows(const QByteArray &letter)
{
    const QByteArray axis = "chart_" + letter + "_axis_";
    const QByteArray show = "chart_show_" + letter + "_axis";
    return {{show, show + "_grid"}, {axis + "title_option", axis + "custom_title"}, {axis + "scale"},
        {axis + "min_range_option", axis + "min_range_custom_value"},
        {axis + "max_range_option", axis + "max_range_custom_value"}, {axis + "nice_values"}, {axis + "show_labels"},
        {axis + "label_angle"}, {axis + "label_format", axis + "label_precision"}};
}

} // namespace

ChartItemWidget::ChartItemWidget(ChartNode &item, QWidget *parent)
    : DataItemWidget(item, parent)
    , m_pages(new QTabWidget)
    , m_chart(new ChartWidget)
{
    m_pages->setDocumentMode(true);
    OptionsForm *configure = addForm(QStringLiteral("Configure"), QString());
    configure->addRow({"chart_type"});
    addColumnRows(*configure);
    configure->addRow({"chart_layout", "chart_facets_across"});
    addPage(QStringLiteral("General"), QString(),
        {{"chart_theme"}, {"chart_title_option", "chart_custom_title"}, {"chart_legend_position"}});
    addPage(QStringLiteral("X Axis"), QStringLiteral("No X axis options for this chart type"),
        axisRows("x") + QList<QList<QByteArray>>{{"chart_x_axis_label_date_format"}});
    addPage(QStringLiteral("Y Axis"), QStringLiteral("No Y axis options for this chart type"),
        axisRows("y") + QList<QList<QByteArray>>{{"chart_y_axis_same_range_all_facets"}});
    addPage(QStringLiteral("Series"), QStringLiteral("No series options for this chart type"),
        {{"chart_line_thickness"}, {"chart_opacity"}, {"chart_show_Line_data_points"},
            {"chart_point_size_option", "chart_custom_points_size"}});
    addAliasRow(*addPage(QStringLiteral("Output"), QStringLiteral("No output options for this chart type"),
        {{"write_file"}, {"path"}, {"chart_image_type"}, {"chart_image_width", "chart_image_height"},
            {"chart_pdf_size", "chart_pdf_orientation"}, {"chart_pdf_resolution"}}));
    setOptionsArea(m_pages);
    addPicture();
}

void ChartItemWidget::enlist()
{
    PanelFactory::instance().add(
        ItemType::Chart, [](Node &node) { return new ChartItemWidget(static_cast<ChartNode &>(node)); });
}

ChartNode *ChartItemWidget::chartNode() const
{
    return static_cast<ChartNode *>(node());
}

void ChartItemWidget::setOptions(const ChartOptions &options, const QString &label)
{
    if (chartNode()) {
        const UndoStep step(*node(), QStringLiteral("'%1' change").arg(label));
        chartNode()->setOptions(options);
    }
}

OptionsForm *ChartItemWidget::addForm(const QString &title, const QString &nothing)
{
    auto source = std::make_unique<Source>([this] { return chartNode() ? chartNode()->options() : ChartOptions(); },
        [this](const ChartOptions &options, const QString &label) { setOptions(options, label); },
        [] {
            return OptionWalk::DefaultsPlace{QStringLiteral("charts"), QString(), QString()};
        });
    Page entry{new OptionsForm(std::move(source)), nullptr, {}};
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 6, 0, 0);
    if (!nothing.isEmpty()) {
        entry.nothing = new QLabel(nothing);
        entry.nothing->setWordWrap(true);
        layout->addWidget(entry.nothing);
    }
    layout->addWidget(entry.form);
    layout->addStretch(1);
    m_pages->addTab(page, title);
    m_forms.append(entry);
    connect(entry.form, &OptionsForm::optionChanged, this, &ChartItemWidget::onOptionChanged);
    connect(entry.form, &OptionsForm::processNow, this, &DataItemWidget::processNow);
    connect(entry.form, &OptionsForm::userInteraction, this, &DataItemWidget::onUserInteraction);
    connect(entry.form, &OptionsForm::browseClicked, this, &ChartItemWidget::onBrowse);
    return entry.form;
}

OptionsForm *ChartItemWidget::addPage(
    const QString &title, const QString &nothing, const QList<QList<QByteArray>> &rows)
{
    OptionsForm *form = addForm(title, nothing);
    for (const QList<QByteArray> &row : rows) {
        form->addRow(row);
        m_forms.last().keys += row;
    }
    return form;
}

void ChartItemWidget::addColumnRows(OptionsForm &form)
{
    const auto hasType = [this] { return chartNode() && chartNode()->options().type != ChartChoice::NoType; };
    m_x = new SingleColumnFilteredWidget;
    m_x->setToolTip(QStringLiteral("The column that gives the X axis."));
    m_x->setAccessibleName(QStringLiteral("X axis data"));
    form.addRow(QStringLiteral("X axis data:"), m_x, hasType);
    form.addRow({"chart_x_as"});
    m_y = new MultipleColumnsWidget;
    m_y->setToolTip(QStringLiteral("The columns that give the Y axis, a series or a facet each."));
    m_y->setAccessibleName(QStringLiteral("Y axis data"));
    form.addRow(QStringLiteral("Y axis data:"), m_y, hasType);
    connect(m_x, &SingleColumnFilteredWidget::columnChanged, this, [this] { onColumnsChosen(true); });
    connect(m_y, &MultipleColumnsWidget::columnsChanged, this, [this] { onColumnsChosen(false); });
    connect(m_y, &MultipleColumnsWidget::userInteraction, this, &DataItemWidget::onUserInteraction);
}

void ChartItemWidget::addAliasRow(OptionsForm &form)
{
    m_alias = new QLineEdit;
    m_alias->setToolTip(QStringLiteral("A name for this item, by which a command line can give it another file."));
    connect(m_alias, &QLineEdit::editingFinished, this, &ChartItemWidget::onAliasEdited);
    form.addRow(QStringLiteral("Alias:"), m_alias);
}

/// The picture takes the place of the table, which a chart has none of.
void ChartItemWidget::addPicture()
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 4, 0, 0);
    layout->setSpacing(4);
    auto *copy = new QToolButton;
    copy->setIcon(Icons::icon(QStringLiteral("edit-copy")));
    copy->setAutoRaise(true);
    copy->setAccessibleName(QStringLiteral("Copy"));
    copy->setToolTip(QStringLiteral("Copy the chart image to the clipboard."));
    connect(copy, &QToolButton::clicked, this, &ChartItemWidget::onCopyClicked);
    layout->addWidget(copy);
    layout->addWidget(m_chart, 1);
    setPicturePage(page, QStringLiteral("Chart"));
}

void ChartItemWidget::refreshOptions()
{
    for (const Page &page : m_forms) {
        page.form->refresh();
        if (page.nothing) {
            const bool some = std::any_of(page.keys.begin(), page.keys.end(),
                [&page](const QByteArray &key) { return page.form->source().applies(key); });
            page.nothing->setVisible(!some);
        }
    }
    refreshColumns();
    if (!m_alias->hasFocus()) {
        m_alias->setText(chartNode()->alias());
    }
    toolRow().runButton().setToolTip(chartNode()->writesFile() ? QStringLiteral("Create chart and write to file.")
                                                               : QStringLiteral("Create chart."));
}

void ChartItemWidget::refreshColumns()
{
    const QList<Node *> inputs = node()->upstreamNodes(true);
    const Node *input = inputs.isEmpty() ? nullptr : inputs.first();
    m_x->setColumns(ColumnList::of(input));
    m_x->setColumn(chartNode()->columns().x());
    m_y->setSource(input);
    m_y->setChecked(chartNode()->columns().y());
}

void ChartItemWidget::onTableShown()
{
    showPicture();
    showNextTip();
}

void ChartItemWidget::showPicture()
{
    const QString text = chartNode()->placeText();
    const QVariantList state{text, chartNode()->lastProcessed()};
    if (state == m_shown) {
        return;
    }
    m_shown = state;
    if (text.isEmpty()) {
        m_chart->rebuild(chartNode()->model(), chartNode()->options());
    } else {
        m_chart->showMessage(text);
    }
}

void ChartItemWidget::letGoOfData()
{
    DataItemWidget::letGoOfData();
    m_y->setSource(nullptr);
}

void ChartItemWidget::showNextTip()
{
    constexpr int shownMs = 8000;
    QWidget *type = m_forms.first().form->editor("chart_type");
    if (chartNode()->options().type == ChartChoice::NoType) {
        Tips::showOnce(QStringLiteral("tip_chart_type"), QStringLiteral("Select chart type"),
            QStringLiteral("Choose how the data are to be drawn."), shownMs, type);
    } else if (chartNode()->columns().x().isNull()) {
        Tips::showOnce(QStringLiteral("tip_chart_x_axis_data"), QStringLiteral("Select X axis data"),
            QStringLiteral("Choose the column that gives the X axis."), shownMs, m_x);
    } else if (chartNode()->columns().y().isEmpty()) {
        Tips::showOnce(QStringLiteral("tip_chart_y_axis_data"), QStringLiteral("Select Y axis data"),
            QStringLiteral("Choose one or more columns, each a series of its own."), shownMs, m_y);
    }
}

void ChartItemWidget::onOptionChanged(const QByteArray &key)
{
    if (key == "chart_image_type") {
        offerExtension();
    } else if (key == "path") {
        offerType();
    }
    onParameterValueChanged(true);
    refreshOptions();
    showNextTip();
}

void ChartItemWidget::offerExtension()
{
    ChartOptions options = chartNode()->options();
    const QFileInfo file(options.path);
    const QString extension = QLatin1String(extensionOf(options.imageType));
    if (options.path.isEmpty() || file.suffix().isEmpty() || typeOf(options.path) == options.imageType
        || !panelState().prompts->confirm(QStringLiteral("Change file extension to '%1'?").arg(extension))) {
        return;
    }
    options.path = options.path.left(options.path.size() - file.suffix().size()) + extension;
    setOptions(options, QStringLiteral("File"));
}

void ChartItemWidget::offerType()
{
    ChartOptions options = chartNode()->options();
    const int type = typeOf(options.path);
    if (type >= 0 && type != options.imageType
        && panelState().prompts->confirm(
            QStringLiteral("Change file type to '%1'?").arg(ChartChoice::imageTypeLabel(type)))) {
        options.imageType = type;
        setOptions(options, QStringLiteral("Type"));
    }
}

void ChartItemWidget::onBrowse()
{
    FileRequest request;
    request.title = QStringLiteral("Output To File");
    request.filter = QStringLiteral("PNG (*.png);;JPEG (*.jpg *.jpeg);;PDF (*.pdf)");
    request.confirmsOverwriting = false;
    const QString present = chartNode()->path();
    request.start = present.isEmpty() ? Settings::current().lastOutputDataDir() : present;
    const QString path = panelState().prompts->saveFile(request);
    if (!path.isEmpty() && m_forms.last().form->source().setValue("path", path, QStringLiteral("File"))) {
        Settings::current().setLastOutputDataDir(QFileInfo(path).absolutePath());
        onOptionChanged("path");
    }
}

void ChartItemWidget::onColumnsChosen(bool isX)
{
    if (!chartNode()) {
        return;
    }
    const QLatin1String label(isX ? "X axis data" : "Y axis data");
    {
        const UndoStep step(*node(), QStringLiteral("'%1' change").arg(label));
        if (isX) {
            chartNode()->columns().setX(m_x->column(), chartNode()->upstreamDataset());
        } else {
            chartNode()->columns().setY(m_y->checkedColumns(), chartNode()->upstreamDataset());
        }
    }
    onParameterValueChanged(true);
    showNextTip();
}

void ChartItemWidget::onAliasEdited()
{
    if (chartNode() && m_alias->text().trimmed() != chartNode()->alias()) {
        const UndoStep step(*node(), QStringLiteral("'Alias' change"));
        chartNode()->setAlias(m_alias->text());
        emit changeNeedsSave();
        refreshOptions();
    }
}

void ChartItemWidget::takeTyped()
{
    DataItemWidget::takeTyped();
    onAliasEdited();
}

void ChartItemWidget::onCopyClicked()
{
    QImage image(m_chart->size() * devicePixelRatioF(), QImage::Format_RGB32);
    image.setDevicePixelRatio(devicePixelRatioF());
    image.fill(Qt::white);
    m_chart->render(&image);
    QApplication::clipboard()->setImage(image);
}
