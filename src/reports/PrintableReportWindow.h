// The window of the printable report: the whole document, to be read, copied, printed or saved.
#pragma once
