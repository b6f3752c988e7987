#pragma once
// All menus of the frame and where their choices go.

/// Builds the menus; items whose doers are not there stand disabled. Call again when slots have changed.
void BuildMainMenus();

class frmMain;
/// Sends every choice to its action of the frame or to the page in front.
void RouteMainMenus(frmMain& frame);
