#include "lab/objc/PlayedSystem.h"

#import <objc/runtime.h>
#include <sys/eventfd.h>

#include <cstdint>
#include <mutex>
#include <utility>
#include <vector>

#import "lab/objc/HostClasses.h"
#include "platform/Registry.h"
#include "platform/RunLoop.h"
#include "platform/embedded/EmbeddedDistributedNotifications.h"

namespace {

struct Observed {
  id observer;
  std::unique_ptr<vorn::DistributedNotifications::Subscription> subscription;
};

// All that are told, which only the one center below is asked for.
std::vector<Observed>& observed() {
  static std::vector<Observed> all;
  return all;
}

// What came over the bus, on its way to the main thread. The thread that reads it must not touch the Objective-C
// runtime: it holds a lock of the bus, which the main thread may wait for while it loads the plug-in and holds the
// lock of the runtime.
class Arrivals {
 public:
  Arrivals() : m_descriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}
  Arrivals(const Arrivals&) = delete;
  Arrivals& operator=(const Arrivals&) = delete;

  // Can be read while something waits; as the run loop takes it.
  void* descriptor() const { return reinterpret_cast<void*>(static_cast<std::intptr_t>(m_descriptor)); }
  void add(vorn::RunLoop::Task task) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_tasks.push_back(std::move(task));
    eventfd_write(m_descriptor, 1);
  }
  std::vector<vorn::RunLoop::Task> take() {
    const std::lock_guard<std::mutex> lock(m_mutex);
    eventfd_t count = 0;
    eventfd_read(m_descriptor, &count);
    return std::exchange(m_tasks, {});
  }

 private:
  // To the end of the process.
  const int m_descriptor;
  std::mutex m_mutex;
  std::vector<vorn::RunLoop::Task> m_tasks;
};

Arrivals& arrivals() {
  static Arrivals all;
  return all;
}

NSString* playedVersion = nil;

NSDictionary* dictionaryOf(const vorn::Value& userInfo) {
  if (!userInfo.isDictionary()) return nil;
  NSMutableDictionary* made = [NSMutableDictionary dictionary];
  for (const auto& [key, text] : userInfo.entries())
    [made setObject:vornlab::foundationText(text.text()) forKey:vornlab::foundationText(key)];
  return made;
}

vorn::Value valueOf(NSDictionary* userInfo) {
  if (!userInfo) return {};
  vorn::Value made = vorn::Value::dictionary();
  NSEnumerator* keys = [userInfo keyEnumerator];
  while (NSString* key = [keys nextObject])
    made.set(vornlab::plainText(key), vornlab::plainText([[userInfo objectForKey:key] description]));
  return made;
}

}  // namespace

// The center of distributed notifications over the bus. Foundation's own class cannot be made a second time, so
// this has its selectors alone. It stays to the end of the process, as the plug-in does.
@interface vnBusCenter : NSObject {
 @public
  // Not owned; null when nothing travels any more.
  vorn::DistributedNotifications* m_bus;
}
@end

@implementation vnBusCenter
- (void)addObserver:(id)observer selector:(SEL)selector name:(NSString*)name object:(id)object {
  (void)object;
  // What has no name is the toolkit's own, and not meant for the client.
  if (!m_bus || !name) return;
  const std::string known = vornlab::plainText(name);
  const auto told = [=](const vorn::Value& userInfo) {
    const vornlab::Pool passing;
    [observer performSelector:selector
                   withObject:[NSNotification notificationWithName:vornlab::foundationText(known)
                                                            object:nil
                                                          userInfo:dictionaryOf(userInfo)]];
  };
  observed().push_back({observer, m_bus->observe(known, told)});
}
- (void)addObserver:(id)observer
              selector:(SEL)selector
                  name:(NSString*)name
                object:(id)object
    suspensionBehavior:(NSNotificationSuspensionBehavior)behavior {
  (void)behavior;
  [self addObserver:observer selector:selector name:name object:object];
}
- (void)removeObserver:(id)observer {
  std::erase_if(observed(), [=](const Observed& each) { return each.observer == observer; });
}
- (void)postNotificationName:(NSString*)name
                      object:(id)object
                    userInfo:(NSDictionary*)userInfo
          deliverImmediately:(BOOL)immediately {
  (void)object;
  (void)immediately;
  if (m_bus) m_bus->post(vornlab::plainText(name), valueOf(userInfo));
}
- (void)postNotification:(NSNotification*)notification {
  [self postNotificationName:[notification name]
                      object:[notification object]
                    userInfo:[notification userInfo]
          deliverImmediately:YES];
}
@end

// Hears in the main loop that something waits in the queue.
@interface vnBusWatcher : NSObject <RunLoopEvents>
@end

@implementation vnBusWatcher
- (void)receivedEvent:(void*)data type:(RunLoopEventType)type extra:(void*)extra forMode:(NSString*)mode {
  (void)data;
  (void)type;
  (void)extra;
  (void)mode;
  // Nobody has observed anything before the plug-in has its loop.
  vorn::RunLoop* loop = vorn::Registry::platform().runLoop;
  for (vorn::RunLoop::Task& task : arrivals().take()) {
    if (loop) loop->post(std::move(task));
  }
}
@end

namespace {

vnBusCenter* busCenter() {
  static vnBusCenter* center = [[vnBusCenter alloc] init];
  return center;
}

IMP ownVersion = nullptr;

// Also without a bus: nobody in the laboratory is on Foundation's own center, and to ask for that starts a server
// of the machine's.
id playedCenter(id, SEL) { return busCenter(); }

id playedVersionText(id process, SEL selector) {
  return playedVersion ? playedVersion : ownVersion(process, selector);
}

// The class may have inherited its method, which others have too.
IMP putInto(Class owner, SEL selector, IMP method) {
  const Method own = class_getInstanceMethod(owner, selector);
  const IMP before = method_getImplementation(own);
  class_replaceMethod(owner, selector, method, method_getTypeEncoding(own));
  return before;
}

}  // namespace

namespace vornlab {

void PlayedSystem::takeFoundationsPlace() {
  if (ownVersion) return;
  const Pool pool;
  putInto(object_getClass([NSDistributedNotificationCenter class]), @selector(defaultCenter),
          reinterpret_cast<IMP>(playedCenter));
  ownVersion = putInto([NSProcessInfo class], @selector(operatingSystemVersionString),
                       reinterpret_cast<IMP>(playedVersionText));
}

PlayedSystem::PlayedSystem(const std::string& version) {
  const Pool pool;
  takeFoundationsPlace();
  playedVersion = [foundationText("played " + version) retain];
  static vnBusWatcher* watcher = [[vnBusWatcher alloc] init];
  NSString* const modes[] = {NSDefaultRunLoopMode, @"NSModalPanelRunLoopMode", @"NSEventTrackingRunLoopMode"};
  for (NSString* mode : modes)
    [[NSRunLoop currentRunLoop] addEvent:arrivals().descriptor() type:ET_RDESC watcher:watcher forMode:mode];
  m_bus = vorn::EmbeddedDistributedNotifications::connect(
      [](vorn::RunLoop::Task task) { arrivals().add(std::move(task)); });
  busCenter()->m_bus = m_bus.get();
}

PlayedSystem::~PlayedSystem() {
  observed().clear();
  busCenter()->m_bus = nullptr;
  [std::exchange(playedVersion, nil) release];
}

}  // namespace vornlab
