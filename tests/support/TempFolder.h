#pragma once

#include <QString>
#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace brindlex {

/// A folder for the length of a test, with a way to files that does not go through the code under
/// test. Names are relative to the folder.
class TempFolder {
  public:
    std::filesystem::path at(const std::string& name = "") const { return root_ / name; }
    QString path(const std::string& name = "") const {
        return QString::fromStdString((name.empty() ? root_ : at(name)).string());
    }
    /// Makes the folders on the way, too.
    void put(const std::string& name, std::string_view bytes) const {
        std::filesystem::create_directories(at(name).parent_path());
        std::ofstream(at(name), std::ios::binary) << bytes;
    }
    /// The bytes of a file; "(none)" when there is none.
    std::string get(const std::string& name) const {
        std::ifstream file(at(name), std::ios::binary);
        if (!file) return "(none)";
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// How many entries that folder itself has.
    std::ptrdiff_t count(const std::string& name = "") const {
        return std::distance(std::filesystem::directory_iterator(at(name)), {});
    }

  private:
    QTemporaryDir folder_;
    std::filesystem::path root_ = folder_.path().toStdString();
};

}  // namespace brindlex
