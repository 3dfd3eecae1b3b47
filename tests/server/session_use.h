// A session, and a program that is told how its prints go on.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "objects/dispatch_object.h"
#include "objects/variant_values.h"
#include "server_fixture.h"
#include "test_rows.h"

namespace td {

// What a program writes to be told how its prints go on.
struct Listener {
  std::function<TdVariant(std::int32_t page)> onPage;
  std::function<TdVariant(double seconds)> onLockWait;
  bool knowsPages = true;
  bool knowsLocks = true;
};

class ListenerObject final : public DispatchObject<ListenerObject, TdDispatch> {
 public:
  explicit ListenerObject(Listener listener)
      : DispatchObject(&kTable), listener_(std::move(listener)) {}
  static bool Has(const TdGuid& id) { return SameGuid(id, kTdDispatchId); }
  static void Enter() {}
  static const Members& AllMembers() {
    static const Members members = {{"onpage", 5, TD_CALL_METHOD, {"Page"}, 1},
                                    {"OnLockWait", 6, TD_CALL_METHOD, {"Seconds"}, 1}};
    return members;
  }
  void Call(std::int32_t member, const CallArguments& arguments, TdVariant& result) {
    result = member == 5 ? listener_.onPage(arguments.Integer32(0))
                         : listener_.onLockWait(arguments.Real(0));
  }

 private:
  static TdResult TD_CALL GetIds(TdDispatch* self, const TdGuid* reserved,
                                 const TdUnit* const* names, std::uint32_t count,
                                 std::uint32_t language, std::int32_t* ids) {
    const bool isPage = std::u16string(names[0]) == u"OnPage";
    const Listener& listener = Of(self).listener_;
    if (isPage ? !listener.knowsPages : !listener.knowsLocks) return TD_UNKNOWN_NAME;
    return GetIDsOfNames(self, reserved, names, count, language, ids);
  }

  static const TdDispatchTable kTable;
  Listener listener_;
};

inline const TdDispatchTable ListenerObject::kTable = {
    QueryInterface, AddRef, Release, GetTypeInfoCount, GetTypeInfo, GetIds, Invoke};

class Session : public ServerTest {
 protected:
  ~Session() override { session_ = {}; }

  [[nodiscard]] Reference<TdDispatch> NewSession() const {
    return module_->Create(kTdSessionClass);
  }
  Outcome PrintNames(const std::vector<std::string>& names, const char* format = "") const {
    return Print(session_.Get(), TestRows::Make(NamedRows(names)).Get(), format);
  }
  void Choose(const char* method, const std::string& target) const {
    ExpectOk(Call(session_.Get(), method, {TdTextVariant(target.c_str())}));
  }
  void Put(const char* property, TdVariant value) const {
    ExpectOk(td::Put(session_.Get(), property, value));
  }
  void Collect() const { Put("MessageMode", TdIntegerVariant(TD_MESSAGES_COLLECTED)); }
  // The session keeps a reference of its own.
  void Listen(Listener listener) const {
    const auto object = Reference<TdDispatch>::Taking(new ListenerObject(std::move(listener)));
    Put("Progress", TdDispatchVariant(object.Get()));
  }
  [[nodiscard]] OwnedVariant Read(const char* property) const {
    OwnedVariant value;
    ExpectOk(Get(session_.Get(), property, value));
    return value;
  }
  [[nodiscard]] std::string Text(const char* property) const {
    OwnedVariant value = Read(property);
    EXPECT_EQ(value->type, TD_STRING) << property;
    return TextOf(value->value.string);
  }
  [[nodiscard]] std::int32_t Number(const char* property) const {
    OwnedVariant value = Read(property);
    EXPECT_EQ(value->type, TD_INT32) << property;
    return value->value.integer32;
  }
  [[nodiscard]] bool Delivered() const {
    OwnedVariant value = Read("Delivered");
    EXPECT_EQ(value->type, TD_BOOLEAN);
    return value->value.flag == TD_TRUE_FLAG;
  }

  const std::string pdf_ = folder_.File("order.pdf");
  OtherUser other_{folder_.File("bills.db")};
  Reference<TdDispatch> session_ = NewSession();
};

}  // namespace td
