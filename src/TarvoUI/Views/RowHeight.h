#pragma once

class QTableView;

/// Makes the rows of a table as high as its type and \p margin pixels more, and keeps them so when the type changes.
void fitRowsToFont(QTableView* table, int margin);
