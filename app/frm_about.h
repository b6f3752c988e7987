#pragma once
// frmAbout: name, version and where to find the makers.

void ShowAbout();
