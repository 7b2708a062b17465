#include "host/surface/HookTable.h"

#include "host/surface/vnHookECCalendarEvent.h"
#include "host/surface/vnHookECMutableCalendarEvent.h"
#include "host/surface/vnHookERCalendarEventEditorViewController.h"
#include "host/surface/vnHookERCalendarEventEditorWindowController.h"
#include "host/surface/vnHookERageMainWindowController.h"
#include "host/surface/vnHookOLAttachmentsAcceptingView.h"
#include "host/surface/vnHookOLAutoLayoutAttachmentsAcceptingView.h"
#include "host/surface/vnHookOLAutoLayoutView.h"
#include "host/surface/vnHookOLCalendarEventViewResponder.h"
#include "host/surface/vnHookOLCalendarGridViewWrapper.h"
#include "host/surface/vnHookOLCalendarHeaderContainerView.h"
#include "host/surface/vnHookOUIRibbonChunkContainerView.h"

namespace vorn {

namespace {

constexpr HookMethod ofInstances = HookMethod::ofInstances;
constexpr HookMethod ofTheClass = HookMethod::ofTheClass;
constexpr auto forward = &vnHookRoot::forward;

constexpr std::string_view kRibbonContainer = "OUIRibbonChunkContainerView";
constexpr std::string_view kHeaderContainer = "OLCalendarHeaderContainerView";
constexpr std::string_view kAutoLayoutHeader = "OLAutoLayoutAttachmentsAcceptingView";
constexpr std::string_view kWindowController = "ERCalendarEventEditorWindowController";
constexpr std::string_view kGridWrapper = "OLCalendarGridViewWrapper";
constexpr std::string_view kHeader = "OLAttachmentsAcceptingView";
constexpr std::string_view kEvent = "ECCalendarEvent";
constexpr std::string_view kAutoLayoutView = "OLAutoLayoutView";
constexpr std::string_view kEventResponder = "OLCalendarEventViewResponder";
constexpr std::string_view kMainWindow = "ERageMainWindowController";
constexpr std::string_view kEditor = "ERCalendarEventEditorViewController";
constexpr std::string_view kMutableEvent = "ECMutableCalendarEvent";

using RibbonContainer = vnHookOUIRibbonChunkContainerView;
using HeaderContainer = vnHookOLCalendarHeaderContainerView;
using AutoLayoutHeader = vnHookOLAutoLayoutAttachmentsAcceptingView;
using WindowController = vnHookERCalendarEventEditorWindowController;
using GridWrapper = vnHookOLCalendarGridViewWrapper;
using Header = vnHookOLAttachmentsAcceptingView;
using Event = vnHookECCalendarEvent;
using EventResponder = vnHookOLCalendarEventViewResponder;
using MainWindow = vnHookERageMainWindowController;
using Editor = vnHookERCalendarEventEditorViewController;
using MutableEvent = vnHookECMutableCalendarEvent;

// clang-format off
constexpr HookRow kRibbonContainerRows[] = {
    {kRibbonContainer, ofInstances, "drawRect:", "B@:ffff", &RibbonContainer::vn_OUIRibbonChunkContainerView_drawRect},
};

constexpr HookRow kHeaderContainerRows[] = {
    {kHeaderContainer, ofInstances, "drawRect:", "B@:ffff", &HeaderContainer::vn_OLCalendarHeaderContainerView_drawRect},
};

constexpr HookRow kAutoLayoutHeaderRows[] = {
    {kAutoLayoutHeader, ofInstances, "initWithFrame:", "@@:ffff",
     &AutoLayoutHeader::vnOLAutoLayoutAttachmentsAcceptingView_initWithFrame},
    {kAutoLayoutHeader, ofInstances, "drawRect:", "B@:ffff",
     &AutoLayoutHeader::vnOLAutoLayoutAttachmentsAcceptingView_drawRect},
};

constexpr auto showWindow = &WindowController::vn_ERCalendarEventEditorWindowController_showWindow;
constexpr HookRow kWindowControllerRows[] = {
    {kWindowController, ofTheClass, "showWindowForMeeting:", "@@:@", showWindow},
    {kWindowController, ofTheClass, "showWindowForNewMeeting", "@@:", forward},
    {kWindowController, ofTheClass, "showWindowForEvent:", "@@:@", showWindow},
    {kWindowController, ofTheClass, "showWindowForNewEvent", "@@:@", forward},
    {kWindowController, ofTheClass, "showCancellationWindowForMeeting:", "@@:@", showWindow},
    {kWindowController, ofTheClass, "showWindowForEvent:isMeeting:fromMessage:", "@@:@@@", showWindow},
};

constexpr HookRow kGridWrapperRows[] = {
    {kGridWrapper, ofInstances,
     "dragResizedEvent:withTileView:withStartDate:duration:inProgress:partialStart:partialEnd:", "B@:@@@d^cBB",
     &GridWrapper::vn_OLCalendarGridViewWrapper_dragResizedEvent},
    {kGridWrapper, ofInstances, "performDragFrom:to:forDate:inProgress:", "B@:@@@^c",
     &GridWrapper::vn_OLCalendarGridViewWrapper_performDragFrom},
    {kGridWrapper, ofInstances, "subjectChanged:forEvent:andTileView:", "B@:@@@",
     &GridWrapper::vn_OLCalendarGridViewWrapper_subjectChanged},
};

constexpr HookRow kHeaderRows[] = {
    {kHeader, ofInstances, "initWithFrame:", "@@:ffff", &Header::vnOLAttachmentsAcceptingView_initWithFrame},
};

constexpr HookRow kEventRows[] = {
    {kEvent, ofInstances, "deleteEventNow", "B@:", &Event::vn_ECCalendarEvent_deleteEventNow},
    {kEvent, ofInstances, "cancelMeetingInWindow:", "v@:@", &Event::vn_ECCalendarEvent_cancelMeetingInWindow},
    {kEvent, ofInstances, "isRecurring", "B@:", &Event::vn_ECCalendarEvent_isRecurring},
    {kEvent, ofInstances, "isOccurrence", "B@:", &Event::vn_ECCalendarEvent_isOccurrence},
    {kEvent, ofInstances, "olmUCCapabilities", "@@:", &Event::vn_ECCalendarEvent_olmUC},
    {kEvent, ofInstances, "olmUCInband", "@@:", &Event::vn_ECCalendarEvent_olmUC},
};

constexpr HookRow kAutoLayoutViewRows[] = {
    {kAutoLayoutView, ofInstances, "drawRect:", "B@:ffff", &vnHookOLAutoLayoutView::vn_OLAutoLayoutView_drawRect},
};

constexpr HookRow kEventResponderRows[] = {
    {kEventResponder, ofInstances, "switchToRecurringSeries:", "v@:@",
     &EventResponder::vn_OLCalendarEventViewResponder_switchToRecurringSeries},
};

constexpr HookRow kMainWindowRows[] = {
    {kMainWindow, ofInstances, "toolbar:itemForItemIdentifier:willBeInsertedIntoToolbar:", "@@:@@B",
     &MainWindow::vn_ERageMainWindowController_toolbarItem},
    {kMainWindow, ofInstances, "toolbarDefaultItemIdentifiers:", "@@:@", forward},
    {kMainWindow, ofInstances, "toolbarAllowedItemIdentifiers:", "@@:@", forward},
    {kMainWindow, ofInstances, "windowDidBecomeMain:", "v@:@",
     &MainWindow::vn_ERageMainWindowController_windowDidBecomeMain},
    {kMainWindow, ofInstances, "windowWillClose:", "v@:@", &MainWindow::vn_ERageMainWindowController_windowWillClose},
    {kMainWindow, ofInstances, "loadMailPane", "v@:", &MainWindow::vn_ERageMainWindowController_loadPane},
    {kMainWindow, ofInstances, "loadCalendarPane", "v@:", &MainWindow::vn_ERageMainWindowController_loadPane},
};

constexpr HookRow kEditorRows[] = {
    {kEditor, ofInstances, "saveAndClose:", "v@:@", &Editor::forwardAsSave},
    {kEditor, ofInstances, "saveAndCloseWindow:", "i@:B",
     &Editor::vn_ERCalendarEventEditorViewController_saveAndCloseWindow},
    {kEditor, ofInstances, "save", "B@:", &Editor::forwardAsSave},
    {kEditor, ofInstances, "save:", "v@:@", &Editor::vn_ERCalendarEventEditorViewController_save},
    {kEditor, ofInstances, "setIsCancelMode:", "v@:B", forward},
    {kEditor, ofInstances, "sendMeetingPostValidate", "v@:",
     &Editor::vn_ERCalendarEventEditorViewController_sendMeetingPostValidate},
    {kEditor, ofInstances, "fromFieldModified:", "v@:@",
     &Editor::vn_ERCalendarEventEditorViewController_fromFieldModified},
    {kEditor, ofInstances, "switchToRecurrenceDidEnd:returnCode:contextInfo:", "v@:@i^v",
     &Editor::vn_ERCalendarEventEditorViewController_switchToRecurrenceDidEnd},
    {kEditor, ofInstances, "saveAndCloseWindow:andReturnError:", "i@:B@",
     &Editor::vn_ERCalendarEventEditorViewController_saveAndCloseWindow_andReturnError},
    {kEditor, ofInstances, "hostWordMailEditor:", "v@:@",
     &Editor::vn_ERCalendarEventEditorViewController_hostWordMailEditor},
    {kEditor, ofInstances, "checkMeetingChangesForAttendees:", "B@:^c",
     &Editor::vn_ERCalendarEventEditorViewController_checkMeetingChangesForAttendees, CharacterPointers::texts},
};

constexpr HookRow kMutableEventRows[] = {
    {kMutableEvent, ofInstances, "setOlmUCInband:", "v@:@", &MutableEvent::vn_ECMutableCalendarEvent_setOlmUCInband},
    {kMutableEvent, ofInstances, "saveRecord", "l@:", &MutableEvent::vn_ECMutableCalendarEvent_saveRecord},
};

constexpr HookClass kTable[] = {
    {"vnHookOUIRibbonChunkContainerView", kRibbonContainer, kRibbonContainerRows},
    {"vnHookOLCalendarHeaderContainerView", kHeaderContainer, kHeaderContainerRows, &HeaderContainer::prepare},
    {"vnHookOLAutoLayoutAttachmentsAcceptingView", kAutoLayoutHeader, kAutoLayoutHeaderRows},
    {"vnHookERCalendarEventEditorWindowController", kWindowController, kWindowControllerRows},
    {"vnHookOLCalendarGridViewWrapper", kGridWrapper, kGridWrapperRows},
    {"vnHookOLAttachmentsAcceptingView", kHeader, kHeaderRows},
    {"vnHookECCalendarEvent", kEvent, kEventRows},
    {"vnHookOLAutoLayoutView", kAutoLayoutView, kAutoLayoutViewRows},
    {"vnHookOLCalendarEventViewResponder", kEventResponder, kEventResponderRows},
    {"vnHookERageMainWindowController", kMainWindow, kMainWindowRows, &MainWindow::prepare, &MainWindow::finish},
    {"vnHookERCalendarEventEditorViewController", kEditor, kEditorRows},
    {"vnHookECMutableCalendarEvent", kMutableEvent, kMutableEventRows},
};
// clang-format on

}  // namespace

std::string HookRow::addedSelector() const {
  const bool isAttachmentsView = hostClass == kHeader || hostClass == kAutoLayoutHeader;
  std::string selector = isAttachmentsView ? "vn" : "vn_";
  return selector.append(hostClass).append("_").append(hostSelector);
}

std::span<const HookClass> hookTable() { return kTable; }

}  // namespace vorn
