#pragma once

#include <QStringList>

/// The files opened last, most recent first, as the settings of the user keep them.
class RecentFiles {
public:
    static constexpr int kMost = 20;

    /// Reads the list anew; another instance of the program may have changed it.
    void read();
    void write() const;

    const QStringList& paths() const { return _paths; }
    bool contains(const QString& path) const { return _paths.contains(path); }
    /// Puts a path at the front. A list of more than kMost loses its last one.
    void add(const QString& path);
    /// Drops the files that can't be opened for reading any more.
    void dropMissing();

private:
    QStringList _paths;
};
