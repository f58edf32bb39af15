// Callbacks and what they bind, closures at the end of a scope, and counted pointers.

#include "include/base/cef_bind.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "include/base/cef_callback_helpers.h"
#include "include/cef_base.h"

namespace {

class Counted : public CefBaseRefCounted {
 public:
  explicit Counted(bool* deleted = nullptr) : deleted_(deleted) {}
  ~Counted() override {
    if (deleted_) {
      *deleted_ = true;
    }
  }

  void Add(int a, const std::string& text) { seen += std::to_string(a) + text; }
  void Take(std::unique_ptr<int> number) { seen += std::to_string(*number); }
  size_t Length(const CefString& text) const { return text.length(); }
  base::WeakPtr<Counted> Weak() { return factory_.GetWeakPtr(); }
  base::OnceClosure BindThis() { return base::BindOnce(&Counted::Add, this, 1, "this"); }

  std::string seen;

 private:
  bool* const deleted_;
  base::WeakPtrFactory<Counted> factory_{this};

  IMPLEMENT_REFCOUNTING(Counted);
};

int Difference(int a, int b) {
  return a - b;
}

TEST(BindTest, BindsFunctionsAndLambdasInOrder) {
  base::OnceCallback<int(int)> subtract = base::BindOnce(&Difference, 10);
  EXPECT_EQ(std::move(subtract).Run(3), 7);
  base::RepeatingCallback<int(int, int)> unbound = base::BindRepeating(&Difference);
  EXPECT_EQ(unbound.Run(5, 4), 1);
  base::OnceCallback<std::string(std::string)> join =
      base::BindOnce([](const std::string& a, std::string b) { return a + b; }, "a");
  EXPECT_EQ(std::move(join).Run("b"), "ab");
}

TEST(BindTest, KeepsACountedObjectAlive) {
  bool deleted = false;
  base::OnceClosure closure;
  {
    CefRefPtr<Counted> object = new Counted(&deleted);
    closure = object->BindThis();
  }
  EXPECT_FALSE(deleted);
  std::move(closure).Run();
  EXPECT_TRUE(deleted);
}

TEST(BindTest, UnretainedKeepsNothingAlive) {
  bool deleted = false;
  base::OnceClosure closure;
  {
    CefRefPtr<Counted> object = new Counted(&deleted);
    closure = base::BindOnce(&Counted::Add, base::Unretained(object.get()), 1, "x");
  }
  EXPECT_TRUE(deleted);
}

TEST(BindTest, WeakCallsEndWithTheObject) {
  CefRefPtr<Counted> object = new Counted;
  base::RepeatingClosure closure = base::BindRepeating(&Counted::Add, object->Weak(), 1, "w");
  closure.Run();
  EXPECT_EQ(object->seen, "1w");
  object = nullptr;
  closure.Run();
}

TEST(BindTest, OnceCallbackIsNullAfterItsRun) {
  base::OnceClosure closure = base::DoNothing();
  EXPECT_TRUE(closure);
  std::move(closure).Run();
  EXPECT_FALSE(closure);  // NOLINT(bugprone-use-after-move): that is what is tested
}

TEST(BindTest, MovesArgumentsIntoAOnceCallback) {
  CefRefPtr<Counted> object = new Counted;
  base::OnceClosure closure = base::BindOnce(&Counted::Take, object, std::make_unique<int>(5));
  std::move(closure).Run();
  EXPECT_EQ(object->seen, "5");
}

TEST(BindTest, RepeatingCallbackKeepsItsArguments) {
  CefRefPtr<Counted> object = new Counted;
  base::RepeatingClosure closure = base::BindRepeating(&Counted::Add, object, 2, std::string("r"));
  closure.Run();
  base::OnceClosure once = closure;
  std::move(once).Run();
  closure.Run();
  EXPECT_EQ(object->seen, "2r2r2r");
}

TEST(BindTest, WrapsCallbacksAndResults) {
  CefRefPtr<Counted> object = new Counted;
  base::OnceCallback<void(int, const std::string&)> inner = base::BindOnce(&Counted::Add, object);
  base::OnceClosure outer = base::BindOnce(std::move(inner), 3, "o");
  std::move(outer).Run();
  EXPECT_EQ(object->seen, "3o");
  base::OnceCallback<size_t(const CefString&)> length = base::BindOnce(&Counted::Length, object);
  EXPECT_EQ(std::move(length).Run("four"), 4u);
  base::OnceClosure ignored =
      base::BindOnce(base::IgnoreResult(&Counted::Length), object, CefString("x"));
  std::move(ignored).Run();
}

TEST(BindTest, WrappersChangeWhatTheFunctionReceives) {
  bool deleted = false;
  const auto is_set = [](Counted* object) { return object != nullptr; };
  base::OnceCallback<bool()> retained =
      base::BindOnce(is_set, base::RetainedRef(new Counted(&deleted)));
  EXPECT_FALSE(deleted);
  EXPECT_TRUE(std::move(retained).Run());
  EXPECT_TRUE(deleted);
  base::OnceCallback<int()> owned =
      base::BindOnce([](int* number) { return *number; }, base::Owned(new int(4)));
  EXPECT_EQ(std::move(owned).Run(), 4);
  int number = 1;
  base::RepeatingClosure increment = base::BindRepeating([](int& n) { ++n; }, std::ref(number));
  increment.Run();
  EXPECT_EQ(number, 2);
}

TEST(BindTest, ClosureRunnerRunsAtTheEndOfItsScope) {
  int runs = 0;
  const auto count = [](int* n) { ++*n; };
  {
    base::ScopedClosureRunner runner(base::BindOnce(count, base::Unretained(&runs)));
    EXPECT_EQ(runs, 0);
  }
  EXPECT_EQ(runs, 1);
  {
    base::ScopedClosureRunner runner(base::BindOnce(count, base::Unretained(&runs)));
    EXPECT_TRUE(runner.Release());
  }
  EXPECT_EQ(runs, 1);
}

TEST(RefPtrTest, CountsAndCompares) {
  CefRefPtr<Counted> a = new Counted;
  EXPECT_TRUE(a->HasOneRef());
  CefRefPtr<CefBaseRefCounted> b = a;
  EXPECT_FALSE(a->HasOneRef());
  EXPECT_TRUE(a == b);
  CefRefPtr<Counted> c = std::move(a);
  EXPECT_FALSE(a);  // NOLINT(bugprone-use-after-move): that is what is tested
  b = nullptr;
  EXPECT_TRUE(c->HasOneRef());
  c = c.get();
  EXPECT_TRUE(c->HasOneRef());
}

}  // namespace
