#include "OptionSearch.h"

#include "TarvoAdvConfig.h"

bool searchOptions(const QString& text, QTabWidget* tabs, const std::vector<TarvoAdvConfig*>& forms) {
    const QStringList words = text.simplified().split(' ', Qt::SkipEmptyParts);
    int first = -1;
    bool currentHasSome = false;
    for (int i = 0; i < static_cast<int>(forms.size()); ++i) {
        const bool found = forms[static_cast<std::size_t>(i)]->narrow(words) > 0;
        tabs->setTabEnabled(i, found);
        first = first < 0 && found ? i : first;
        currentHasSome = currentHasSome || (found && i == tabs->currentIndex());
    }
    if (first >= 0 && !currentHasSome) {
        tabs->setCurrentIndex(first);
    }
    return first >= 0;
}
