// The rows of a font picker, a name and the picture of its class each, as a plain table.
#pragma once

#include "platform/controls/Icons.h"

#include <QAbstractListModel>
#include <QString>
#include <utility>
#include <vector>

struct FontItem
{
    QString Text;
    QString IconKey;
};

class FontItemModel : public QAbstractListModel
{
public:
    FontItemModel(std::vector<FontItem> items, QObject *parent)
        : QAbstractListModel(parent), Items(std::move(items))
    {
    }

    int rowCount(const QModelIndex &parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(Items.size());
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        const FontItem &item = Items.at(static_cast<std::size_t>(index.row()));
        switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return item.Text;
        case Qt::DecorationRole:
            return Icons::icon(item.IconKey);
        default:
            return {};
        }
    }

private:
    std::vector<FontItem> Items;
};
