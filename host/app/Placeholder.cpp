// The host application.
int placeholder_app = 0;
