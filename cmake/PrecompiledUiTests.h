// The same for the tests of the screens.
#pragma once

#include "Precompiled.h"

#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtTest>

#include <gtest/gtest.h>
