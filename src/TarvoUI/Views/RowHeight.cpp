#include "RowHeight.h"

#include "FontWatch.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QTableView>

void fitRowsToFont(QTableView* table, int margin) {
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->verticalHeader()->setMinimumSectionSize(1);
    const auto fit = [table, margin] {
        table->verticalHeader()->setDefaultSectionSize(QFontMetrics(table->font()).height() + margin);
    };
    new FontWatch(table, fit);
    fit();
}
