#ifndef TESTPCH_H
#define TESTPCH_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#endif
