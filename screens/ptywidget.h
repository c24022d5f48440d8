#pragma once

#include "listrows.h"

#include <QMap>
#include <QScroller>
#include <QStringListModel>
#include <QWidget>

namespace Ui {
class c20_026_pty_list;
}

namespace cm {
class ListviewScroller;
}

namespace tuner {

// The programme types of the broadcast standard in use, with the marked row.
class PTYModel : public QStringListModel
{
    Q_OBJECT
public:
    explicit PTYModel(QObject *parent = nullptr);

    QModelIndex indexById(int code) const;
    // The names in the vehicle's RDS flavour, in the current language.
    void fillNames();
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    int codeOfRow(int row) const;

    QMap<int, QString> m_names;
    QModelIndex m_highlighted;
    QModelIndex m_selected;
};

// One PTY row: background, a mark when checked, the name.
class ItemDelegate : public RowDelegate
{
    Q_OBJECT
public:
    using RowDelegate::RowDelegate;

    void setCheckAble(bool checkable) { m_checkable = checkable; }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    void drawCheck(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect,
                   Qt::CheckState state) const override;

private:
    bool m_checkable = false;
};

// The screen where the driver picks a programme type to search for.
class PTYWidget : public QWidget
{
    Q_OBJECT
public:
    explicit PTYWidget(QWidget *parent = nullptr);
    ~PTYWidget() override;

    void highLightItem(int code);
    bool isPTYValid(int code) const;
    PTYModel *model() const { return m_model; }
    // Texts fetched again after the host switched languages.
    void retranslate();

signals:
    void backtuner();
    void PTYchanged(int id);
    void PTYChecked(int);
    void PTYSearchName(QString string);
    void ListStateChange(QScroller::State state);

public slots:
    void onPTYChanged(int);
    void onPTYSelected(QModelIndex index);
    void onListToFirstPage();
    void on_0062_back();

private:
    Ui::c20_026_pty_list *ui;
    PTYModel *m_model;
    ItemDelegate *m_delegate;
    cm::ListviewScroller *m_scroller;
};

} // namespace tuner
