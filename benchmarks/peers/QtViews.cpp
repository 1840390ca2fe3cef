#include "benchmarks/peers/QtViews.h"

#include "benchmarks/ListWorkload.h"

#include <QHeaderView>
#include <QPlainTextEdit>
#include <QTableView>

QString ToQt(const String& text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

CellTexts::CellTexts(CellOf cellOf)
{
    for (int i = 0; i < kCellRows * kCellColumns; ++i)
    {
        m_Texts.push_back(ToQt(cellOf(i / kCellColumns, i % kCellColumns)));
    }
}

const QString& CellTexts::At(int row, int column) const
{
    return m_Texts[static_cast<size_t>(row % kCellRows * kCellColumns + column)];
}

int TableModel::columnCount(const QModelIndex&) const
{
    return kCellColumns;
}

QVariant TableModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole)
    {
        return {};
    }
    ++m_Asked;
    return m_Texts.At(index.row(), index.column());
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return orientation == Qt::Horizontal && role == Qt::DisplayRole
               ? QStringLiteral("Column %1").arg(section)
               : QVariant();
}

void TableModel::SetRows(int rows)
{
    beginResetModel();
    m_Rows = rows;
    endResetModel();
}

QTableView* MakeTable(QAbstractItemModel* model)
{
    auto* const view = new QTableView;
    view->setModel(model);
    view->setShowGrid(false);
    view->setAlternatingRowColors(true);
    view->setWordWrap(false);
    view->setTextElideMode(Qt::ElideMiddle);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    QHeaderView* const rows = view->verticalHeader();
    rows->hide();
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->setMinimumSectionSize(1);
    rows->setDefaultSectionSize(kCellRowHeight);
    view->horizontalHeader()->setDefaultSectionSize(kCellColumnWidth);
    return view;
}

QPlainTextEdit* MakeLog()
{
    auto* const log = new QPlainTextEdit;
    log->setReadOnly(true);
    log->setUndoRedoEnabled(false);
    log->setLineWrapMode(QPlainTextEdit::NoWrap);
    QFont font(QStringLiteral("monospace"), log->font().pointSize());
    font.setStyleHint(QFont::Monospace);
    log->setFont(font);
    return log;
}
