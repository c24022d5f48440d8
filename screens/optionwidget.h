#pragma once

#include "listrows.h"
#include "tuneroptions.h"

#include <QAbstractListModel>
#include <QMap>
#include <QWidget>

namespace Ui {
class c20_046_tuner_option;
}

namespace cm {
class ListviewScroller;
}

namespace tuner {

// The visible rows of the option list: copies of the option items table.
class TunerOptionModel : public QAbstractListModel
{
    Q_OBJECT
public:
    explicit TunerOptionModel(QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    QString value(tunerOptionItem item) const;
    void initData();
    void setShowable(bool isFM);
    void setItemShowable(tunerOptionItem item, bool on);

private:
    QList<tagTunerOpItem_T> m_rows;
};

// One option row: background, title on the left, value on the right.
class TunerItemDelegate : public RowDelegate
{
    Q_OBJECT
public:
    using RowDelegate::RowDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    void drawCheck(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect,
                   Qt::CheckState state) const override;
};

// The tuner's settings: automatic store, Local, AF, TA, Regional, PTY.
class OptionWidget : public QWidget
{
    Q_OBJECT
public:
    explicit OptionWidget(QWidget *parent = nullptr);
    ~OptionWidget() override;

    void clicked(int item);
    void reset();
    // Texts fetched again after the host switched languages.
    void retranslate();
    TunerOptionModel *model() const { return m_model; }

signals:
    void backTunerPlayer();
    void OpAutoScan();
    void opLocalStatus();
    void opAfStatus();
    void opTaStatus();
    void opRegionalStatus();
    void opRsdsStatus(bool type);
    void showPTYWidget();
    void curPTYItem(QString string);

public slots:
    void onShowOptionItem();
    void onCurPTYItem(int);
    void onItemClicked(QModelIndex index);
    void onBack();

private:
    Ui::c20_046_tuner_option *ui;
    TunerOptionModel *m_model;
    TunerItemDelegate *m_delegate;
    cm::ListviewScroller *m_scroller;
    QMap<int, QString> m_ptyNames;
    bool m_ptyItemInitialised = false;
};

} // namespace tuner
