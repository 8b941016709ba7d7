// The drawing model library.
namespace veld {
int placeholder_model = 0;
}
