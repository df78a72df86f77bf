// The headers that most sources of the program include, compiled once.
#include <QtWidgets>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>
