// Numbers of the texts in the test resources.
#define TEXT_FIRST 16
#define TEXT_UMLAUT 17
