#include "app/application.h"

#include "core/data_dir.h"
#include "model/layer_depths.h"
#include "plot/bilog_frame.h"

namespace tellux {

Application::Application(Dialogs& dialogs, Forms& forms, DrawingSurface& Bilog,
                         SystemServices& system, std::string settings_path)
    : session{s, dialogs, forms},
      drawing(session, BilogSurfaces{&Bilog, nullptr, nullptr}),
      frmSplash(session),
      main(session, settings, std::move(settings_path), Bilog, system, frmSplash),
      sheet(session, settings.SevFile),
      setup(session, Bilog, main.Text1, main.Text4, &sheet.BuildGrid),
      model(session, Bilog,
            MainFormBoxes{sheet.XBox, sheet.YBox, sheet.ZBox, sheet.AzimBox, sheet.CommentBox,
                          sheet.TitleBox, main.NameBox, main.Text3}),
      profile(session, settings, main.SEV_Grid),
      print(session, settings, VSPrint),
      section(session, settings, VSPrint1) {
  // The section is wide: its sheet lies on its side until the page setup says otherwise.
  std::swap(VSPrint1.PageWidth, VSPrint1.PageHeight);
  section.rebuild = [this] { profile.Trace_Profil(VSPrint1); };
  profile.show_section = [this] { section.display_print(); };
  profile.section_page = &VSPrint1;
  main.display_profile = [this] { section.display_print(); };
  prepare_bilog_surface(Bilog);
  drawing.attach();
  main.attach(setup, sheet);
  main.ComputeDepths = [this] { tellux::ComputeDepths(session); };
  main.compute_model = [this] { model.menu_compute(); };
  main.fit_model = [this] { model.menu_fit(); };
  main.load_profile = [this] { profile.load(); };
  main.store_profile = [this] { profile.store(); };
  main.display_print = [this] { print.display_print(); };
}

void Application::Option_Click(int index) {
  setup.Option_Click(index);
  static const char* kTags[] = {"0", "1", "2"};
  if (index >= 0 && index <= 2) settings.SevFile = spread_file_for(kTags[index]);
}

}  // namespace tellux
