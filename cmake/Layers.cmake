# The rooms of the host toolkit and of values/, lowest first. A file may
# include headers from its own room and from rooms before it in this list,
# never from one after it. The subsystems stand above every room and may
# include each other's public headers.
#
# Headers in a room's detail/ folder are private: they are not installed, not
# in the umbrella header, and no public header includes them. A private host
# header serves the host's own sources in its room and above; a subsystem's
# private header serves that subsystem alone.
set(ZO_ROOMS
  host/base
  host/events
  values/notify
  host/drawing
  values/params
  host/shell
  host/toolkit
  values/binding
  host/widgets/values
  host/widgets/buttons
  host/widgets/popups
  host/widgets/panels
  host/widgets/text
  host/widgets/lists
  host/widgets/files
  host/widgets/registry
  host/headless
  host/display)

# Only these rooms may include the windowing libraries.
set(ZO_WINDOWING_ROOMS host/headless host/display)
set(ZO_WINDOWING_HEADERS_REGEX "^(SDL|X11/)")
