#include <gtest/gtest.h>

#include <type_traits>

#include "frame.h"

TEST(ModuleObject, IsAnApplicationObjectWithANullName) {
  const CZEPHDataStructureEngineApp app;
  EXPECT_EQ(app.m_pszAppName, nullptr);
  const CObject* object = &app;
  EXPECT_NE(dynamic_cast<const CWinApp*>(object), nullptr);
}

TEST(ModuleObject, AddsNoFieldToItsBase) {
  EXPECT_EQ(sizeof(CZEPHDataStructureEngineApp), sizeof(CWinApp));
}

TEST(ModuleObject, CanBeConstructedBesideTheLibrarysOwn) {
  for (int i = 0; i < 3; ++i) delete static_cast<CObject*>(new CZEPHDataStructureEngineApp);
}

TEST(ModuleObject, IsNotCopyable) {
  EXPECT_FALSE(std::is_copy_constructible_v<CZEPHDataStructureEngineApp>);
  EXPECT_FALSE(std::is_copy_assignable_v<CZEPHDataStructureEngineApp>);
}
