// Loading an XML file in a process of its own, where no memory has been touched yet.
#pragma once

// Of a process that was started for it: loads the file as argv says, prints what it took and ends
// the program. Returns in any other.
void LoadXmlIfAsked(int argc, char** argv);
