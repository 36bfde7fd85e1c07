// The servers as guests in their host's memory: counted, growing by nothing, leaving cleanly.
#include "client.h"

#include <gmock/gmock.h>

#include <vector>

#include "heap.h"

namespace tarvo::client {
namespace {

constexpr int kRounds = 10'000;
// Far less than a byte for each round; what the system itself keeps comes and goes in pieces.
constexpr std::size_t kTolerance = kRounds / 2;

TEST(Unloading, ObjectsClassObjectsAndLocksKeepTheServer) {
  EXPECT_EQ(S_OK, library().canUnloadNow());
  auto printer = createPrinter();
  EXPECT_EQ(S_FALSE, library().canUnloadNow());
  printer.reset();
  EXPECT_EQ(S_OK, library().canUnloadNow());

  ComPtr<IClassFactory> factory;
  library().getClassObject(CLSID_clsUtilImp, IID_IClassFactory, factory.outVoid());
  EXPECT_EQ(S_FALSE, library().canUnloadNow());
  factory->LockServer(TRUE);
  IClassFactory* raw = factory.get();
  raw->AddRef();
  factory.reset();
  EXPECT_EQ(S_FALSE, library().canUnloadNow());
  raw->LockServer(FALSE);
  raw->Release();
  EXPECT_EQ(S_OK, library().canUnloadNow());
}

TEST(Unloading, HandedOverServicesKeepTheLibraryUntilNothingReplacesThem) {
  {
    const auto startUp = createStartUp();
    const auto services = Services::fromCompanion();
    ASSERT_EQ(S_OK, services.handOver(startUp.get()));
  }
  // The services are for the life of the library: a new copy would know nothing of them.
  EXPECT_EQ(S_FALSE, library().canUnloadNow());
  EXPECT_EQ(S_FALSE, companion().canUnloadNow());
  handOverNothing();
  EXPECT_EQ(S_OK, library().canUnloadNow());
  EXPECT_EQ(S_OK, companion().canUnloadNow());
}

// Files are slow to make here, so only some of the rounds open a job in one.
constexpr int kRoundsPerJob = 25;

void oneRound(int round, const Bstr& printerName) {
  const auto startUp = createStartUp();
  const auto services = Services::fromCompanion();
  services.handOver(startUp.get());
  auto printer = createPrinter();
  _clsUtilImp* channel = printer.get();
  _clsUtReport* report = services.utReport.get();
  startUp->sInitializePrintLibrary(&channel, &report);
  printer->SetChrBold(Bstr(u"\x1b"
                           u"E")
                          .get());
  if (round % kRoundsPerJob == 0) {
    printer->sInitializePrinterFileHandle(printerName.get(), Bstr(u"round").get());
  }
  printer->sWriteLn(Bstr(u"Año").get(), 2);
  printer->sPrintVerticalRule(5462, VARIANT_FALSE);  // fails, with a trail
  printer->sClosePrinterFileHandle();
  SetErrorInfo(0, nullptr);
  handOverNothing();
}

TEST(Unloading, ALeakOfOneByteInEveryRoundWouldBeSeen) {
  const std::size_t before = allocatedBytes();
  ASSERT_GT(before, 0u);
  std::vector<void*> leaked;
  for (int i = 0; i < kRounds; ++i) leaked.push_back(HeapAlloc(GetProcessHeap(), 0, 1));
  EXPECT_GT(allocatedBytes(), before + kTolerance);
  for (void* block : leaked) HeapFree(GetProcessHeap(), 0, block);
}

TEST(Unloading, TenThousandRoundsOfUseDoNotGrow) {
  const std::wstring path = temporaryPath(L"tarvo-rounds.prn");
  const Bstr printerName(u"file:" + Text(com::fromWide(path.c_str())));
  for (int i = 0; i < 500; ++i) oneRound(i, printerName);
  const std::size_t before = allocatedBytes();
  for (int i = 0; i < kRounds; ++i) oneRound(i, printerName);
  const std::size_t after = allocatedBytes();
  EXPECT_LE(after, before + kTolerance);
  EXPECT_EQ(S_OK, library().canUnloadNow());
}

TEST(Unloading, LoadingAndUnloadingMoreOftenThanThereAreThreadSlotsWorks) {
  const std::wstring copy = temporaryPath(L"LibTarvoRdpCI_copy.dll");
  ASSERT_TRUE(CopyFileW(libraryPath().c_str(), copy.c_str(), FALSE));
  for (int i = 0; i < 1200; ++i) {
    const Server server(copy);
    auto printer = create<_clsUtilImp>(server, CLSID_clsUtilImp);
    ASSERT_TRUE(printer) << "round " << i;
    // A failing call uses what a thread keeps for exceptions and services.
    EXPECT_EQ(static_cast<HRESULT>(0x800A005B), printer->sResetPrinter());
    SetErrorInfo(0, nullptr);
    printer.reset();
    ASSERT_EQ(S_OK, server.canUnloadNow());
  }
}

TEST(Unloading, FreeingTheLibraryTakesItOutOfMemory) {
  const std::wstring copy = temporaryPath(L"LibTarvoRdpCI_gone.dll");
  ASSERT_TRUE(CopyFileW(libraryPath().c_str(), copy.c_str(), FALSE));
  {
    const Server server(copy);
    EXPECT_TRUE(create<_clsUtilImp>(server, CLSID_clsUtilImp));
    EXPECT_NE(nullptr, GetModuleHandleW(copy.c_str()));
  }
  EXPECT_EQ(nullptr, GetModuleHandleW(copy.c_str()));
}

}  // namespace
}  // namespace tarvo::client
