#pragma once
// HostSession: the process-wide link to the running host. It holds nothing else; the add-in's
// pure helpers are free functions (ordinal.h, is_unassigned.h).

namespace orv {

class Application;

class HostSession {
 public:
  // The host application every range lookup, worksheet function and chart call goes through.
  // "Object required" (424) when no host is attached. Only the thread that called Results may
  // use it (frame/host.h).
  static orv::Application& Application();
  // Attaches the host that runs the component (nullptr detaches). The caller keeps ownership.
  static void Attach(orv::Application* host);
};

}  // namespace orv
