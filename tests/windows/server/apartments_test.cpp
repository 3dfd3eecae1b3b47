// Programs whose threads share an object: the system carries the calls to the thread that has made
// it, and the calls of the record set back.
#include <functional>
#include <thread>

#include "file_content.h"
#include "files/path_text.h"
#include "message_pump.h"
#include "objects/variant_values.h"
#include "platform/failure.h"
#include "server_fixture.h"
#include "test_rows.h"
#include "windows/api/windows_api.h"

// Behind the system's other headers.
#include <objbase.h>
#include <oleauto.h>

namespace td {
namespace {

class Apartments : public ServerTest {
 protected:
  Apartments() { CoInitialize(nullptr); }
  ~Apartments() override {
    session_ = {};
    CoUninitialize();
  }

  // `calls` get the way to the session from a thread with a model of its own.
  void CallFromAnotherThread(DWORD model, const std::function<void(TdDispatch* remote)>& calls) {
    IStream* way = nullptr;
    ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(
                  IID_IDispatch, reinterpret_cast<IUnknown*>(session_.Get()), &way),
              S_OK);
    HRESULT got = E_FAIL;
    std::thread other([&] {
      CoInitializeEx(nullptr, model);
      void* proxy = nullptr;
      got = CoGetInterfaceAndReleaseStream(way, IID_IDispatch, &proxy);
      if (SUCCEEDED(got)) {
        const auto remote = Reference<TdDispatch>::Taking(static_cast<TdDispatch*>(proxy));
        calls(remote.Get());
      }
      CoUninitialize();
    });
    PumpUntilEndOf(other);
    EXPECT_EQ(got, S_OK);
  }

  void ToHtml(TdDispatch* session) const {
    ExpectOk(Call(session, "ToHtml", {TdTextVariant(file_.c_str())}));
    ExpectOk(Put(session, "MessageMode", TdIntegerVariant(TD_MESSAGES_COLLECTED)));
  }
  [[nodiscard]] static std::string Text(TdDispatch* session, const char* property) {
    OwnedVariant value;
    ExpectOk(Get(session, property, value));
    return TextOf(value->value.string);
  }

  const std::string file_ = folder_.File("订单.html");
  Reference<TdDispatch> session_ = module_->Create(kTdSessionClass);
};

TEST_F(Apartments, RowsOfAnotherThreadPrint) {
  for (const DWORD model : {COINIT_MULTITHREADED, COINIT_APARTMENTTHREADED}) {
    CallFromAnotherThread(model, [&](TdDispatch* remote) {
      ToHtml(remote);
      ExpectOk(Print(remote, TestRows::Make(NamedRows({"大米", "绿豆"})).Get()));
      EXPECT_EQ(Text(remote, "Result"), "written");
      EXPECT_EQ(Text(remote, "Messages"), "");
      EXPECT_TRUE(PrintOk(remote));
      // The component keeps data until it gets other: here, of the thread that stays.
    });
    const std::string page = ContentOf(PathOf(file_));
    EXPECT_NE(page.find("大米"), std::string::npos);
    EXPECT_NE(page.find("绿豆"), std::string::npos);
  }
  ExpectOk(Print(session_.Get(), TestRows::Make(NamedRows({"大米"})).Get()));
}

TEST_F(Apartments, WhatRowsOfAnotherThreadRaiseArrivesInItsWords) {
  CallFromAnotherThread(COINIT_MULTITHREADED, [&](TdDispatch* remote) {
    ToHtml(remote);
    const auto data = NamedRows({"大米", "绿豆"});
    data->rows[0]["FName"] = []() -> TdVariant { throw Failure(3265, "没有这一列"); };
    data->rows[1]["FName"] = []() -> TdVariant { throw Failure(4711, "仓库的门关着"); };
    ExpectOk(Print(remote, TestRows::Make(data).Get()));
    EXPECT_EQ(Text(remote, "Messages").find("没有这一列"), std::string::npos);
    EXPECT_NE(Text(remote, "Messages").find("仓库的门关着"), std::string::npos);
  });
  ExpectOk(Print(session_.Get(), TestRows::Make(NamedRows({"大米"})).Get()));
}

TEST_F(Apartments, AnErrorArrivesWithItsNumberAndItsWords) {
  CallFromAnotherThread(COINIT_MULTITHREADED, [&](TdDispatch* remote) {
    ExpectRaised(Print(remote, nullptr), TD_NOTHING_TO_PRINT, "没有可供打印的数据!");
  });
}

}  // namespace
}  // namespace td
