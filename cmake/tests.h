// The headers that most tests include, compiled once.
#include <gtest/gtest.h>

#include <QtTest>

#include "toolkit.h"
