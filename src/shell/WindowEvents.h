#pragma once

// Drains the window's event queue. A close request and Alt+F4 (either Alt)
// end the run; every other event is dropped, since keys are read from SDL's
// key-state array, which the same polling keeps up to date.
void pumpWindowEvents();
