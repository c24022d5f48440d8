#include "ptywidget.h"

#include "listviewscroller.h"
#include "mcumanager.h"
#include "preferences.h"
#include "pushbutton.h"
#include "rdscodes.h"
#include "settingsutil.h"
#include "theme.h"
#include "translator.h"
#include "tuneroptions.h"
#include "ui_c20_026_pty_list.h"

#include <QPainter>
#include <QScrollBar>

namespace tuner {

namespace {

bool validForStandard(int support, int code)
{
    switch (ptyStandardOf(support)) {
    case PtyStandard::Rds:
        return code >= 1 && code <= 29;
    case PtyStandard::Rbds:
        return (code >= 1 && code <= 26) || code == 29;
    default:
        return false;
    }
}

} // namespace

// --- model -------------------------------------------------------------------------

PTYModel::PTYModel(QObject *parent)
    : QStringListModel(parent)
{
    fillNames();
}

void PTYModel::fillNames()
{
    m_names.clear();
    const int support = cm::SettingsUtil::instance()->getRdsSupport();
    for (int code = 1; code <= 29; ++code) {
        if (const int id = ptyTextId(support, code))
            m_names.insert(code, Translator::translate(id));
    }
    setStringList(m_names.values());
}

QModelIndex PTYModel::indexById(int code) const
{
    const int row = m_names.keys().indexOf(code);
    return row < 0 ? QModelIndex() : index(row, 0);
}

int PTYModel::codeOfRow(int row) const
{
    return m_names.key(stringList().value(row), 0);
}

// A row equal to the count passes the range test, as it always has.
QVariant PTYModel::data(const QModelIndex &index, int role) const
{
    if (index.row() < 0 || index.row() > m_names.count())
        return QVariant();
    switch (role) {
    case Qt::CheckStateRole: {
        const QModelIndex row = indexById(codeOfRow(index.row()));
        const bool checked = row == m_highlighted || (!m_highlighted.isValid() && row == m_selected);
        return checked ? Qt::Checked : Qt::Unchecked;
    }
    case RoleItemId:
        return codeOfRow(index.row());
    case Qt::DisplayRole:
        return stringList().value(index.row());
    case Qt::SizeHintRole:
        return QSize(540, 60);
    default:
        return QVariant();
    }
}

bool PTYModel::setData(const QModelIndex &index, const QVariant &, int role)
{
    if (role == RoleSetHighlighted)
        m_highlighted = index;
    else if (role == RoleSetSelected)
        m_selected = index;
    return true;
}

Qt::ItemFlags PTYModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable;
}

// --- delegate ----------------------------------------------------------------------

void ItemDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    if (!paintable(index))
        return;
    painter->save();
    const QStyleOptionViewItem opt = setOptions(index, option);
    const QRect rect = option.rect;

    const QPixmap check = pixmapOf(index, RoleCheckPixmap);
    const int checkX = m_layout != CheckLeft ? rect.width() - check.width() : rect.left() + 10;
    const QRect checkRect(checkX, rect.top() + (rect.height() - check.height()) / 2, check.width(), check.height());
    const Qt::CheckState checkState = checkStateOf(index);

    const QPixmap decoration = pixmapOf(index, Qt::DecorationRole);
    QRect decorationRect = checkRect;
    if (!decoration.isNull()) {
        const QSize size = decoration.size().boundedTo(QSize(60, 40));
        const int x = (m_layout != CheckLeft ? rect.left() : checkRect.right()) + 10;
        decorationRect = QRect(x, rect.top() + (rect.height() - size.height()) / 2, size.width(), size.height());
    }
    QRect textRect(decorationRect.right() + 10, rect.top(), rect.width() - decorationRect.width(), rect.height());
    if (m_checkable)
        textRect.setLeft(textRect.left() + 40);

    drawParts(painter, opt, index, {rect, decoration, decorationRect, textRect, checkState});
    painter->restore();
}

// The mark sits at natural size at the view's left edge, the row's top.
void ItemDelegate::drawCheck(QPainter *painter, const QStyleOptionViewItem &, const QRect &rect,
                             Qt::CheckState state) const
{
    if (state == Qt::Checked)
        painter->drawPixmap(QPoint(0, rect.top()), QPixmap(QStringLiteral(":/Resource/common/Key_C005_item_s.png")));
}

// --- screen ------------------------------------------------------------------------

PTYWidget::PTYWidget(QWidget *parent)
    : QWidget(parent)
    , ui(new Ui::c20_026_pty_list)
{
    ui->setupUi(this);
    cm::usePanelFontSizes(this);
    ui->Key_0379_list1->hide();
    ui->Txt_0137_list->hide();

    QPalette white = palette();
    white.setColor(QPalette::WindowText, Qt::white);
    white.setColor(QPalette::Text, Qt::white);
    setPalette(white);
    ui->Txt_0090_title->setText(Translator::translate(51));

    m_model = new PTYModel(this);
    ui->Lst_0003_pty_list->setModel(m_model);
    m_delegate = new ItemDelegate(this);
    m_delegate->setCheckIconLayout(ItemDelegate::CheckLeft);
    m_delegate->setCheckAble(true);
    ui->Lst_0003_pty_list->setItemDelegate(m_delegate);

    useSeparateScrollBar(ui->Lst_0003_pty_list, ui->Oth_0009_scroll_bar, this);
    m_delegate->setColorGroup(ui->Txt_0137_list->accessibleDescription());

    // The scroller snaps to the model's 60-pixel hint while rows are laid out
    // at the delegate's 70: two numbers the head unit has always had.
    m_scroller = new cm::ListviewScroller(ui->Lst_0003_pty_list, this);
    m_scroller->setSelectModel(ui->Lst_0003_pty_list->selectionModel());
    m_scroller->setItemHeight(m_model->data(m_model->index(0, 0), Qt::SizeHintRole).toSize().height());

    auto *back = new cm::PushButton(ui->Key_0062_back, this);
    back->setLongPressedInterval(2000);
    connect(back, SIGNAL(shortClicked()), this, SLOT(on_0062_back()));
    connect(m_scroller, SIGNAL(clicked(QModelIndex)), this, SLOT(onPTYSelected(QModelIndex)));
    connect(m_scroller, SIGNAL(stateChanged(QScroller::State)), this, SIGNAL(ListStateChange(QScroller::State)));

    onPTYChanged(Preferences::getInstance()->PTYtype());
}

void PTYWidget::retranslate()
{
    ui->Txt_0090_title->setText(Translator::translate(51));
    m_model->fillNames();
}

PTYWidget::~PTYWidget()
{
    delete ui;
}

// Code 1 is deliberately not valid here.
bool PTYWidget::isPTYValid(int code) const
{
    return code >= 2 && code <= 29;
}

void PTYWidget::highLightItem(int code)
{
    m_model->setData(m_model->indexById(code), 2, RoleSetHighlighted);
    ui->Lst_0003_pty_list->reset();
}

// A valid received type moves the mark and clears the stored choice; an
// invalid one leaves the mark on the stored choice.
void PTYWidget::onPTYChanged(int code)
{
    const int support = cm::SettingsUtil::instance()->getRdsSupport();
    if (support != 1 && support != 2)
        return;
    Preferences *p = Preferences::getInstance();
    if (validForStandard(support, code)) {
        highLightItem(code);
        p->setPty(0);
    } else if (validForStandard(support, p->pty())) {
        highLightItem(p->pty());
    }
}

void PTYWidget::onPTYSelected(QModelIndex index)
{
    if (!isVisible())
        return;
    McuManager::instance()->triggerBeep(0);
    emit PTYSearchName(m_model->data(index, Qt::DisplayRole).toString());
    const int code = m_model->data(index, RoleItemId).toInt();
    Preferences::getInstance()->setPty(code);
    m_model->setData(index, 2, RoleSetSelected);
    ui->Lst_0003_pty_list->reset();
    emit PTYChecked(code);
}

void PTYWidget::onListToFirstPage()
{
    ui->Lst_0003_pty_list->scrollToTop();
}

void PTYWidget::on_0062_back()
{
    McuManager::instance()->triggerBeep(0);
    emit backtuner();
}

} // namespace tuner
