#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>
#include <algorithm>
#include <vector>

namespace brindlex {

/// The windows of the program that are loaded, whether or not they show.
class LoadedForms {
  public:
    /// Counts `form` under its object name until it is destroyed.
    void add(QWidget& form) {
        std::erase(forms_, nullptr);
        forms_.emplace_back(&form);
    }
    /// The number of loaded windows of that name, in whatever case.
    int FormCount(const QString& frmName) const {
        return static_cast<int>(std::count_if(forms_.begin(), forms_.end(), [&](const auto& form) {
            return form && form->objectName().compare(frmName, Qt::CaseInsensitive) == 0;
        }));
    }

  private:
    std::vector<QPointer<QWidget>> forms_;
};

}  // namespace brindlex
