// Nothing but the headers compiled before it.
