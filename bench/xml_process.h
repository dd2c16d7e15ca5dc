// Loading an XML file in a process of its own, where no memory has been touched yet.
#pragma once

// In a process that was started for this: loads the file that argv names, prints the time and the
// memory, and ends the program. In any other process it returns.
void LoadXmlIfAsked(int argc, char** argv);
