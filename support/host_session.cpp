#include "support/host_session.h"

#include "frame/errors.h"
#include "frame/host.h"
#include "frame/procedure.h"

namespace orv {
namespace {

constexpr Procedures kProc("HostSession");

// Non-owning: the program that runs the component owns its host and outlives every analysis.
orv::Application* attachedHost = nullptr;

}  // namespace

orv::Application& HostSession::Application() {
  return kProc("Application", []() -> orv::Application& {
    if (attachedHost == nullptr) raise(err::kObjectRequired);
    return *attachedHost;
  });
}

void HostSession::Attach(orv::Application* host) { attachedHost = host; }

}  // namespace orv
