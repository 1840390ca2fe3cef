#pragma once

#include "vesta/String.h"

#include <QAbstractTableModel>
#include <QString>

#include <vector>

class QPlainTextEdit;
class QTableView;

/// Qt's views, set up to look like ours.

QString ToQt(const String& text);

using CellOf = const String& (*)(int row, int column);

/// The texts of a workload as the toolkit wants them, so that it does not pay for converting them.
class CellTexts
{
public:
    explicit CellTexts(CellOf cellOf);

    const QString& At(int row, int column) const;

private:
    std::vector<QString> m_Texts;
};

/// Rows without any data of their own.
class TableModel : public QAbstractTableModel
{
public:
    explicit TableModel(CellOf cellOf) : m_Texts(cellOf) {}

    int      rowCount(const QModelIndex&) const override { return m_Rows; }
    int      columnCount(const QModelIndex&) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    void SetRows(int rows);
    int  Asked() const { return m_Asked; } ///< How many texts of cells were wanted.

private:
    CellTexts   m_Texts;
    int         m_Rows = 0;
    mutable int m_Asked = 0;
};

/// Rows of one height, striped, without a grid and without numbers beside them.
QTableView* MakeTable(QAbstractItemModel* model);
/// A log: read-only, without wrapped lines, in a fixed-pitch font, and without an undo.
QPlainTextEdit* MakeLog();
