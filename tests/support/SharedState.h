#pragma once

// Tests of widgets share one process: preferences, the look (scale, colour
// scheme, window arrangement, theme), tooltips, the keyboard focus and the
// drawn icons outlive each test. resetSharedState() puts them back as a
// fresh process has them, so that tests pass in any order and repeated.
// HeadlessScreenTest calls it as each test is made; other tests that touch
// that state call it themselves.
//
// Every program linking this support library keeps prefs() in a scratch
// folder of its own, made before any test runs and removed at exit, so no
// test reads or clears the user's own settings.
void resetSharedState();
