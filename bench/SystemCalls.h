#pragma once

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <functional>
#include <thread>

// How many system calls, of every kind, a piece of work makes. It runs on a thread of its own, each call of which
// the kernel reports to this one before it carries it out: what is counted is what happens, but nothing that one
// would want to time. -1 where the kernel does not offer this.
class SystemCalls {
 public:
  static long of(const std::function<void()>& work) {
    SystemCalls calls;
    std::thread worker([&] {
      calls.m_listener = reportThisThread();
      if (calls.m_listener < 0) return;
      const long before = calls.m_count;
      work();
      calls.m_made = calls.m_count - before;
    });
    while (calls.m_listener == kNotYet) std::this_thread::yield();
    if (calls.m_listener >= 0) calls.countUntilTheThreadEnds();
    worker.join();
    return calls.m_made;
  }

 private:
  static constexpr int kNotYet = -2;

  static int reportThisThread() {
    sock_filter everything[] = {{BPF_RET | BPF_K, 0, 0, SECCOMP_RET_USER_NOTIF}};
    const sock_fprog program{1, everything};
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) return -1;
    return static_cast<int>(
        ::syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_NEW_LISTENER, &program));
  }

  void countUntilTheThreadEnds() {
    for (;;) {
      pollfd reports{m_listener, POLLIN, 0};
      ::poll(&reports, 1, -1);
      if (!(reports.revents & POLLIN)) break;
      seccomp_notif call{};
      if (::ioctl(m_listener, SECCOMP_IOCTL_NOTIF_RECV, &call) != 0) continue;
      ++m_count;
      seccomp_notif_resp goOn{};
      goOn.id = call.id;
      goOn.flags = SECCOMP_USER_NOTIF_FLAG_CONTINUE;
      ::ioctl(m_listener, SECCOMP_IOCTL_NOTIF_SEND, &goOn);
    }
    ::close(m_listener);
  }

  std::atomic<int> m_listener{kNotYet};
  std::atomic<long> m_count{0};
  long m_made = -1;
};
