#include "optionwidget.h"

#include "listviewscroller.h"
#include "mcumanager.h"
#include "preferences.h"
#include "pushbutton.h"
#include "settingsutil.h"
#include "theme.h"
#include "translator.h"
#include "ui_c20_046_tuner_option.h"

#include <QPainter>
#include <QScrollBar>

namespace tuner {

namespace {

constexpr int kOffText = 3;
constexpr int kOnText = 4;

QString switchText(bool on)
{
    return Translator::translate(on ? kOnText : kOffText);
}

} // namespace

// --- model -------------------------------------------------------------------------

TunerOptionModel::TunerOptionModel(QObject *parent)
    : QAbstractListModel(parent)
{}

int TunerOptionModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

QVariant TunerOptionModel::data(const QModelIndex &index, int role) const
{
    if (index.row() < 0 || index.row() >= m_rows.size())
        return QVariant();
    const tagTunerOpItem_T &row = m_rows.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return Translator::translate(row.textId);
    case RoleItemId:
        return int(row.item);
    case RoleCurrentValue:
        return row.value;
    default:
        return QVariant();
    }
}

Qt::ItemFlags TunerOptionModel::flags(const QModelIndex &index) const
{
    if (!index.isValid() || index.row() >= m_rows.size())
        return Qt::NoItemFlags;
    return m_rows.at(index.row()).enabled ? Qt::ItemIsSelectable | Qt::ItemIsEnabled : Qt::NoItemFlags;
}

QString TunerOptionModel::value(tunerOptionItem item) const
{
    const Preferences *p = Preferences::getInstance();
    switch (item) {
    case OpItemLocal:
        return switchText(p->isLocal());
    case OpItemTa:
        return switchText(p->ta());
    case OpItemAf:
        return switchText(p->af());
    case OpItemRegional:
        return switchText(p->regional());
    case OpItemPty:
        return p->selectPTY();
    default:
        return QString();
    }
}

void TunerOptionModel::initData()
{
    beginResetModel();
    m_rows.clear();
    setShowable(Preferences::getInstance()->isFM());
    for (tagTunerOpItem_T &record : tunerOpItems) {
        record.value = value(record.item);
        if (record.showable)
            m_rows.append(record);
    }
    endResetModel();
}

// Automatic store and Local are always listed; a feature setting other than
// 0 or 1 leaves its rows as they were.
void TunerOptionModel::setShowable(bool isFM)
{
    const int afTaTp = cm::SettingsUtil::instance()->getRdsAfTaTpSupport();
    if (afTaTp == 1 || afTaTp == 0) {
        setItemShowable(OpItemTa, afTaTp == 1 && isFM);
        setItemShowable(OpItemAf, afTaTp == 1 && isFM);
    }
    const int regional = cm::SettingsUtil::instance()->getRegionalSupport();
    if (regional == 1 || regional == 0)
        setItemShowable(OpItemRegional, regional == 1 && isFM);
    setItemShowable(OpItemPty, isFM);
}

void TunerOptionModel::setItemShowable(tunerOptionItem item, bool on)
{
    for (tagTunerOpItem_T &record : tunerOpItems) {
        if (record.item == item) {
            record.showable = on;
            return;
        }
    }
}

// --- delegate ----------------------------------------------------------------------

void TunerItemDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    if (!paintable(index))
        return;
    painter->save();
    const QStyleOptionViewItem opt = setOptions(index, option);
    const QRect rect = option.rect;
    const int viewLeft = rect.left();
    const int viewWidth = option.widget ? option.widget->width() : rect.width();

    const QPixmap check = pixmapOf(index, RoleCheckPixmap);
    const int checkX = m_layout != CheckLeft ? viewWidth - check.width() : viewLeft;
    const QRect checkRect(checkX, rect.top() + (rect.height() - check.height()) / 2, check.width(), check.height());
    const Qt::CheckState checkState = checkStateOf(index);

    const QPixmap decoration = pixmapOf(index, Qt::DecorationRole);
    QRect decorationRect = checkRect;
    if (!decoration.isNull()) {
        const QSize size = decoration.size().boundedTo(QSize(60, 40));
        const int x = (m_layout != CheckLeft ? viewLeft : checkRect.right()) + 13;
        decorationRect = QRect(x, rect.top() + (rect.height() - size.height()) / 2 - 3, size.width(), size.height());
    }
    const QRect titleRect(viewLeft + 66, rect.top() + 10, viewWidth - decorationRect.width() - 92, rect.height() - 26);

    drawParts(painter, opt, index, {checkRect, decoration, decorationRect, titleRect, checkState});
    painter->restore();
}

// The option rows carry no check image; a marked row shows the theme's mark.
void TunerItemDelegate::drawCheck(QPainter *painter, const QStyleOptionViewItem &, const QRect &rect,
                                  Qt::CheckState state) const
{
    if (state == Qt::Checked && !rect.isEmpty())
        painter->drawPixmap(rect, QPixmap(QStringLiteral(":/Resource/common/Key_C005_item_s.png")));
}

// --- screen ------------------------------------------------------------------------

OptionWidget::OptionWidget(QWidget *parent)
    : QWidget(parent)
    , ui(new Ui::c20_046_tuner_option)
{
    ui->setupUi(this);
    cm::usePanelFontSizes(this);
    // Templates that only carry the style of the rows.
    ui->Key_0376_list1->hide();
    ui->Txt_0455_list_current->hide();
    ui->Txt_0454_list->hide();
    ui->Txt_0453_title->setText(Translator::translate(116));

    m_model = new TunerOptionModel(this);
    m_scroller = new cm::ListviewScroller(ui->Lst_0016_tuner_option_list, this);
    ui->Lst_0016_tuner_option_list->setModel(m_model);

    QScrollBar *bar = ui->Oth_0012_scroll_bar;
    useSeparateScrollBar(ui->Lst_0016_tuner_option_list, bar, this);

    m_scroller->setSelectModel(ui->Lst_0016_tuner_option_list->selectionModel());
    connect(m_scroller, SIGNAL(clicked(QModelIndex)), this, SLOT(onItemClicked(QModelIndex)));

    onCurPTYItem(Preferences::getInstance()->PTYtype());
    reset();
    bar->setVisible(m_model->rowCount() >= kOptionItemCount);

    m_delegate = new TunerItemDelegate(this);
    ui->Lst_0016_tuner_option_list->setItemDelegate(m_delegate);
    m_delegate->setColorGroup(ui->Txt_0454_list->accessibleDescription());

    auto *back = new cm::PushButton(ui->Key_0375_back, this);
    back->setLongPressedInterval(2000);
    connect(back, SIGNAL(shortClicked()), this, SLOT(onBack()));
}

void OptionWidget::retranslate()
{
    ui->Txt_0453_title->setText(Translator::translate(116));
    // The rows translate as they are drawn.
    ui->Lst_0016_tuner_option_list->viewport()->update();
}

OptionWidget::~OptionWidget()
{
    delete ui;
}

void OptionWidget::reset()
{
    if (m_model)
        m_model->initData();
    ui->Lst_0016_tuner_option_list->reset();
}

void OptionWidget::onShowOptionItem()
{
    reset();
}

void OptionWidget::onCurPTYItem(int code)
{
    const int support = cm::SettingsUtil::instance()->getRdsSupport();
    for (int c = 1; c <= 29; ++c) {
        if (const int id = ptyTextId(support, c))
            m_ptyNames.insert(c, Translator::translate(id));
    }
    Preferences::getInstance()->setCurPTYItem(m_ptyNames.value(code));
    if (m_ptyItemInitialised)
        reset();
    m_ptyItemInitialised = true;
}

void OptionWidget::onItemClicked(QModelIndex index)
{
    if (!isVisible())
        return;
    if (!(index.flags() & (Qt::ItemIsSelectable | Qt::ItemIsEditable)))
        return;
    clicked(index.data(RoleItemId).toInt());
}

// The preference is toggled before the signal, so the receiver reads the new
// value; the list is rebuilt after, so the row shows it.
void OptionWidget::clicked(int item)
{
    McuManager::instance()->triggerBeep(0);
    Preferences *p = Preferences::getInstance();
    switch (item) {
    case OpItemAutoStore:
        emit OpAutoScan();
        emit backTunerPlayer();
        break;
    case OpItemLocal:
        p->togglelocal();
        emit opLocalStatus();
        reset();
        break;
    case OpItemTa:
        p->toggleTa();
        emit opTaStatus();
        reset();
        break;
    case OpItemAf:
        p->toggleAf();
        emit opAfStatus();
        reset();
        break;
    case OpItemRegional:
        p->toggleRegional();
        emit opRegionalStatus();
        reset();
        break;
    case OpItemPty:
        emit showPTYWidget();
        break;
    default:
        break;
    }
}

void OptionWidget::onBack()
{
    McuManager::instance()->triggerBeep(0);
    emit backTunerPlayer();
}

} // namespace tuner
