#pragma once

#include <QWidget>

class BarDelegate;
class CharactersModel;
class Dataset;
class DelayedLineEdit;
class QHBoxLayout;
class QTableView;
class SamplingComboBox;

/// The page of a panel that tells what characters the columns of its table are made of.
class CharsWidget : public QWidget
{
    Q_OBJECT

public:
    explicit CharsWidget(QWidget *parent = nullptr);

    /// Looked at when the page is next shown. `dataset` must stay until then, or until letGo().
    void setDataset(const Dataset &dataset);
    void letGo();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void addTools(QHBoxLayout &tools);
    void addScrollButtons(QHBoxLayout &tools);
    void profile();
    void filterColumns();

    CharactersModel *m_model;
    QTableView *m_view;
    BarDelegate *m_bars;
    SamplingComboBox *m_sample;
    DelayedLineEdit *m_filter;
    const Dataset *m_dataset = nullptr;
    bool m_stale = false;
};
