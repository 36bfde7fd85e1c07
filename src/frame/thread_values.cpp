#include "frame/thread_values.h"

#include <atomic>

#include "printer/clsUtilImp.h"

namespace tarvo {
namespace {

struct Node {
  ThreadValues values;
  Node* next = nullptr;
};

// Every set that was ever made, so that all stay reachable.  Grows at the front only.
std::atomic<Node*> firstNode{nullptr};

Node* makeNode() {
  Node* node = new Node;
  node->next = firstNode.load();
  while (!firstNode.compare_exchange_weak(node->next, node)) {
  }
  return node;
}

}  // namespace

ThreadValues& ThreadValues::ofThisThread() {
  auto* values = static_cast<ThreadValues*>(platform::threadPointer());
  if (values == nullptr) {
    values = &makeNode()->values;
    platform::setThreadPointer(values);
  }
  return *values;
}

bool anyThreadHoldsServices() noexcept {
  for (const Node* node = firstNode.load(); node != nullptr; node = node->next) {
    if (node->values.services.holdsAny()) return true;
  }
  return false;
}

modRDPGlobalValues::modRDPGlobalValues() = default;
modRDPGlobalValues::~modRDPGlobalValues() = default;

modRDPGlobalValues& modRDPGlobalValues::ofThisThread() {
  return ThreadValues::ofThisThread().services;
}

bool modRDPGlobalValues::holdsAny() const noexcept {
  return refInsError || refInsMessage || refInsTexto || refInsDefGen || refInsConvert ||
         refInsApi || refInsUtilFile || refInsUtilDate || refInsErrorCodesIG ||
         refInsUtilMathOperations || refInsImp || refInsUtReport;
}

}  // namespace tarvo
